"""The growth scenes: the same work in growing amounts, to see what grows faster than the work.

  grid_rows_N, grid_shuffled_N   a grid of N triangles over the whole screen, in row order and in random order
  spread_N, onerow_N             N triangles of 6 x 3 pixels at random depths, over the whole screen or all on one row
  layers_N                       N quads that cover the whole screen, at random depths
  tall_near_N, tall_far_N        16,000 of the small triangles, and N thin ones as tall as the screen before or behind
"""
import math
import random

from scene_builder import IDENTITY, SceneBuilder

TANGENT = math.tan(math.radians(30))
COLOURS = [(200, 100, 50), (50, 200, 100), (100, 50, 200), (180, 180, 60)]
FACES = (1000, 4000, 16000, 64000)

# Each family with its sizes, in the order in which tables show them.
FAMILIES = {
    "grid_rows": FACES + (256000,),
    "grid_shuffled": FACES + (256000,),
    "spread": FACES,
    "onerow": FACES,
    "layers": (1, 2, 4, 8, 16, 32, 64),
    "tall_near": (0, 1, 8, 64),
    "tall_far": (0, 1, 8, 64),
}

# Those whose size is the number of all faces.
FAMILIES_OF_FACES = ("grid_rows", "grid_shuffled", "spread", "onerow")


def empty_scene():
    scene = SceneBuilder(True, 60.0, 0.5, 400.0)
    scene.frames = [IDENTITY] * 3
    return scene


def behind_pixel(x, y, z):
    """The place at depth z that is seen at pixel (x, y) of 640 x 480."""
    return (x - 320) / 240 * TANGENT * z, (240 - y) / 240 * TANGENT * z, -z


def add_triangle(scene, a, b, c, z, colour):
    """Adds a triangle whose corners are pixels; they may run either way round."""
    if (b[0] - a[0]) * (c[1] - a[1]) - (c[0] - a[0]) * (b[1] - a[1]) > 0:
        b, c = c, b
    corners = [scene.vertex(*behind_pixel(*p, z), p[0] / 100, p[1] / 100, 0.7) for p in (a, b, c)]
    scene.triangle(*corners, colour)


def grid(faces, shuffled):
    scene = empty_scene()
    rows = round(math.sqrt(faces / 2 * 480 / 640))
    columns = round(faces / 2 / rows)
    index = [[scene.vertex(*behind_pixel(640 * i / columns, 480 * j / rows, 10), i * 6.4 / columns * 2,
                           j * 4.8 / rows * 2, 0.7) for i in range(columns + 1)] for j in range(rows + 1)]
    triangles = []
    for j in range(rows):
        for i in range(columns):
            a, b, c, d = index[j][i], index[j][i + 1], index[j + 1][i], index[j + 1][i + 1]
            triangles += [(a, c, d), (a, d, b)]
    if shuffled:
        random.Random(1).shuffle(triangles)
    for k, triangle in enumerate(triangles):
        scene.triangle(*triangle, COLOURS[k & 3])
    return scene


def layers(count):
    scene = empty_scene()
    depths = [5 + 3 * k for k in range(count)]
    random.Random(2).shuffle(depths)
    for k, z in enumerate(depths):
        corners = [behind_pixel(*p, z) for p in ((-40, -40), (-40, 520), (680, 520), (680, -40))]
        scene.quad(corners, [(0, 0), (0, 6), (8, 6), (8, 0)], [1, .8, .6, .9], COLOURS[k & 3])
    return scene


def small_triangles(scene, count, numbers, row=None):
    for k in range(count):
        x = numbers.uniform(5, 630)
        y = numbers.uniform(2, 470) if row is None else row
        z = numbers.uniform(5, 300)
        add_triangle(scene, (x, y), (x - 3, y + 3), (x + 3, y + 3), z, COLOURS[k & 3])


def scattered(count, row=None):
    scene = empty_scene()
    small_triangles(scene, count, random.Random(3), row)
    return scene


def tall_among_small(count, nearest):
    scene = empty_scene()
    numbers = random.Random(3)
    small_triangles(scene, 16000, numbers)
    for k in range(count):
        x = numbers.uniform(20, 600)
        add_triangle(scene, (x, 1), (x - 4, 478), (x + 4, 478), nearest + k * 0.01, COLOURS[k & 3])
    return scene


MAKERS = {
    "grid_rows": lambda count: grid(count, False),
    "grid_shuffled": lambda count: grid(count, True),
    "spread": scattered,
    "onerow": lambda count: scattered(count, 240.5),
    "layers": layers,
    "tall_near": lambda count: tall_among_small(count, 2.0),
    "tall_far": lambda count: tall_among_small(count, 350.0),
}


def scene_of(family, size):
    return MAKERS[family](size)
