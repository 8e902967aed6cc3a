"""The neutral scenes: work that any renderer can be given, each heavy in a way of its own.

  fill1   one tilted plane over the whole screen                   pixels and nothing else
  fill    four such planes, drawn 3rd, 1st, 4th, 2nd from the eye  hidden surfaces of large polygons
  room    a hall with pillars and crates, walked through           2,078 triangles, some behind the eye; three layers
  mesh    a model of 69,666 triangles                              many small polygons
  many    a height field of 200,000 triangles                      about a pixel each
  alpha   50 large see-through quads before an opaque one          blending

All have the same texture of 256 x 256 texels and 36 frames along a closed path of the camera.
"""
import math

from scene_builder import IDENTITY, RandomNumbers, SceneBuilder, camera, product, rotation, translation

FRAMES = 36


def turn(frame):
    return 2 * math.pi * frame / FRAMES


def fill_scene(layers):
    """Parallel tilted planes, each of which covers the whole screen; `layers` lists them, 0 is the nearest."""
    scene = SceneBuilder(True, 60.0, 0.5, 200.0)
    random = RandomNumbers(11)
    normal = (0.35, 0.55, 1.0)
    length = math.sqrt(sum(c * c for c in normal))
    normal = tuple(c / length for c in normal)
    across = (normal[2], 0.0, -normal[0])
    length = math.hypot(across[0], across[2])
    across = (across[0] / length, 0.0, across[2] / length)
    upward = (normal[1] * across[2] - normal[2] * across[1], normal[2] * across[0] - normal[0] * across[2],
              normal[0] * across[1] - normal[1] * across[0])
    for layer in layers:
        distance = 3.0 + 1.5 * layer
        extent = 5.0 * distance
        repeats = 1.0 / (0.616 * distance)
        for row in range(2):
            for column in range(2):
                x0, x1 = (column - 1) * extent, column * extent
                y0, y1 = (row - 1) * extent, row * extent
                corners, places = [], []
                for a, b in ((x0, y0), (x1, y0), (x1, y1), (x0, y1)):
                    corners.append(tuple((0, 0, -distance)[k] + across[k] * a + upward[k] * b for k in range(3)))
                    places.append(((a + extent) * repeats, (extent - b) * repeats))
                lights = [random.between(0.3, 1.0) for _ in range(4)]
                scene.quad(corners, places, lights, random.colour())
    for frame in range(FRAMES):
        a = turn(frame)
        scene.frames.append(camera((0.2 * math.sin(a), 0.1 * math.cos(a), 0), 5 * math.sin(a), 3 * math.cos(a),
                                   8 * math.sin(a + 1)))
    return scene


FLOOR_PLAN = [
    "################",
    "#..............#",
    "#..............#",
    "#..............#",
    "#..............#",
    "##...###....####",
    "#..............#",
    "#..............#",
    "#..............#",
    "#..............#",
    "#####..###...###",
    "#..............#",
    "#..............#",
    "#..............#",
    "#..............#",
    "################",
]
CELL, HEIGHT = 2.0, 9.0
LAMPS = [(5, 5.5, 5), (17, 5.5, 5), (27, 5.5, 5), (7, 5.5, 15), (22, 5.5, 15), (8, 5.5, 26), (24, 5.5, 27)]


def is_wall(x, z):
    return FLOOR_PLAN[z][x] == "#"


def lamp_light(place, normal):
    light = 0.15
    for lamp in LAMPS:
        toward = [lamp[k] - place[k] for k in range(3)]
        square = sum(c * c for c in toward)
        facing = max(0.0, sum(toward[k] * normal[k] for k in range(3)) / math.sqrt(square))
        light += facing * 16.0 / (4.0 + square)
    return min(1.0, light)


class Room:
    def __init__(self):
        self.scene = SceneBuilder(True, 70.0, 0.1, 100.0)
        self.random = RandomNumbers(23)

    def rectangle(self, origin, along, upward, normal, rows, repeats):
        """A rectangle as a stack of quads; along x upward points along the normal."""
        for row in range(rows):
            corners, places = [], []
            for a, b in ((0.0, row / rows), (1.0, row / rows), (1.0, (row + 1) / rows), (0.0, (row + 1) / rows)):
                corners.append(tuple(origin[k] + a * along[k] + b * upward[k] for k in range(3)))
                places.append((a, (1 - b) * repeats))
            self.scene.quad(corners, places, [lamp_light(corner, normal) for corner in corners], self.random.colour())

    def sides(self, x, z, half_width, height, repeats):
        x0, x1, z0, z1 = x - half_width, x + half_width, z - half_width, z + half_width
        up, width, depth = (0, height, 0), x1 - x0, z1 - z0
        self.rectangle((x0, 0, z1), (width, 0, 0), up, (0, 0, 1), 1, repeats)
        self.rectangle((x1, 0, z0), (-width, 0, 0), up, (0, 0, -1), 1, repeats)
        self.rectangle((x1, 0, z1), (0, 0, -depth), up, (1, 0, 0), 1, repeats)
        self.rectangle((x0, 0, z0), (0, 0, depth), up, (-1, 0, 0), 1, repeats)

    def pillar(self, x, z, half_width):
        self.sides(x, z, half_width, HEIGHT, 4.0)

    def crate(self, x, z, half_width):
        self.sides(x, z, half_width, 2 * half_width, 1)
        x0, x1, z0, z1 = x - half_width, x + half_width, z - half_width, z + half_width
        self.rectangle((x0, 2 * half_width, z1), (x1 - x0, 0, 0), (0, 0, z0 - z1), (0, 1, 0), 1, 1)

    def cell(self, column, row):
        """Floor, ceiling and the walls around a cell of the plan."""
        x, z = column * CELL, row * CELL
        up = (0, HEIGHT, 0)
        self.rectangle((x, 0, z + CELL), (CELL, 0, 0), (0, 0, -CELL), (0, 1, 0), 1, 1)
        self.rectangle((x, HEIGHT, z), (CELL, 0, 0), (0, 0, CELL), (0, -1, 0), 1, 1)
        if is_wall(column, row - 1):
            self.rectangle((x, 0, z), (CELL, 0, 0), up, (0, 0, 1), 2, 4.5)
        if is_wall(column, row + 1):
            self.rectangle((x + CELL, 0, z + CELL), (-CELL, 0, 0), up, (0, 0, -1), 2, 4.5)
        if is_wall(column - 1, row):
            self.rectangle((x, 0, z + CELL), (0, 0, -CELL), up, (1, 0, 0), 2, 4.5)
        if is_wall(column + 1, row):
            self.rectangle((x + CELL, 0, z), (0, 0, CELL), up, (-1, 0, 0), 2, 4.5)


def stands_in_the_way(x, z):
    """Whether something there would stand on the path of the camera."""
    return (any(abs(x - line) < 1.1 and 5.9 < z < 18.1 for line in (7.0, 19.0))
            or any(abs(z - line) < 1.1 and 6.0 < x < 20.0 for line in (7.0, 17.0)))


def room_scene():
    room = Room()
    for row in range(16):
        for column in range(16):
            if not is_wall(column, row):
                room.cell(column, row)

    standing = 0
    while standing < 120:
        column, row = 1 + room.random.next() % 14, 1 + room.random.next() % 14
        x = column * CELL + room.random.between(0.3, 1.7)
        z = row * CELL + room.random.between(0.3, 1.7)
        half_width = room.random.between(0.35, 0.8)
        if is_wall(column, row) or stands_in_the_way(x, z):
            continue
        if standing % 8 < 7:
            room.pillar(x, z, half_width)
        else:
            room.crate(x, z, half_width)
        standing += 1

    # A closed walk: east, south, west and north, with a turn in the last part of each side.
    corners = [(3.5, 3.5), (9.5, 3.5), (9.5, 8.5), (3.5, 8.5)]
    for frame in range(FRAMES):
        side, part = divmod(frame, 9)
        begin, end = corners[side], corners[(side + 1) % 4]
        part = part / 9.0
        x = (begin[0] + (end[0] - begin[0]) * part) * CELL
        z = (begin[1] + (end[1] - begin[1]) * part) * CELL
        yaw = -90.0 * (side + 1) - 90.0 * max(0.0, (part - 0.6) / 0.4)
        room.scene.frames.append(camera((x, 4.0 + 0.05 * math.sin(frame), z), yaw, -6.0 + 4 * math.sin(frame * 0.7)))
    return room.scene


def read_model(path):
    """The places and the triangles of an OBJ file."""
    places, triangles = [], []
    for line in path.read_text().splitlines():
        words = line.split()
        if words[:1] == ["v"]:
            places.append(tuple(float(word) for word in words[1:4]))
        elif words[:1] == ["f"]:
            indices = [int(word.split("/")[0]) - 1 for word in words[1:]]
            triangles += [(indices[0], indices[k], indices[k + 1]) for k in range(1, len(indices) - 1)]
    return places, triangles


def smooth_normals(places, triangles):
    normals = [[0.0, 0.0, 0.0] for _ in places]
    for a, b, c in triangles:
        e = [places[b][k] - places[a][k] for k in range(3)]
        f = [places[c][k] - places[a][k] for k in range(3)]
        normal = (e[1] * f[2] - e[2] * f[1], e[2] * f[0] - e[0] * f[2], e[0] * f[1] - e[1] * f[0])
        for corner in (a, b, c):
            for k in range(3):
                normals[corner][k] += normal[k]
    return normals


def mesh_scene(model):
    """The model of an OBJ file, two units large, with the texture laid round it as round a globe."""
    scene = SceneBuilder(True, 45.0, 0.1, 20.0)
    random = RandomNumbers(31)
    places, triangles = read_model(model)
    low = [min(place[k] for place in places) for k in range(3)]
    high = [max(place[k] for place in places) for k in range(3)]
    middle = [(low[k] + high[k]) / 2 for k in range(3)]
    scale = 2.0 / max(high[k] - low[k] for k in range(3))
    places = [tuple((place[k] - middle[k]) * scale for k in range(3)) for place in places]
    lamp = (0.48, 0.64, 0.6)

    attributes = []
    for place, normal in zip(places, smooth_normals(places, triangles)):
        length = math.sqrt(sum(c * c for c in normal)) or 1.0
        radius = math.sqrt(sum(c * c for c in place)) or 1.0
        u = math.atan2(place[2], place[0]) / (2 * math.pi) + 0.5
        v = 0.5 - math.asin(max(-1, min(1, place[1] / radius))) / math.pi
        facing = max(0.0, sum(normal[k] * lamp[k] for k in range(3)) / length)
        attributes.append((u, v, min(1.0, 0.15 + 0.85 * facing)))

    # A vertex at the seam of the texture is needed twice: at its left and at its right end.
    made = {}

    def vertex(index, lap):
        if (index, lap) not in made:
            u, v, light = attributes[index]
            made[index, lap] = scene.vertex(*places[index], (u + lap) * 4.0, v * 4.0, light)
        return made[index, lap]

    for triangle in triangles:
        us = [attributes[index][0] for index in triangle]
        over_seam = max(us) - min(us) > 0.5
        corners = [vertex(index, 1 if over_seam and attributes[index][0] < 0.5 else 0) for index in triangle]
        scene.triangle(*corners, random.colour())
    for frame in range(FRAMES):
        matrix = product(rotation("y", 10.0 * frame), IDENTITY)
        matrix = product(rotation("x", 12.0 * math.sin(frame * 2 * math.pi / FRAMES)), matrix)
        scene.frames.append(product(translation(0, 0, -2.3), matrix))
    return scene


def many_scene():
    """A height field of 400 x 250 quads."""
    scene = SceneBuilder(True, 50.0, 0.5, 100.0)
    random = RandomNumbers(43)
    columns, rows = 400, 250
    width, depth = 24.0, 15.0

    def height(x, z):
        return (0.5 * math.sin(x * 0.9 + 0.3) * math.cos(z * 0.8) + 0.25 * math.sin(x * 2.3 + z * 1.7)
                + 0.06 * math.sin(x * 7.1) * math.sin(z * 6.3))

    for row in range(rows + 1):
        for column in range(columns + 1):
            x, z = (column / columns - 0.5) * width, (row / rows - 0.5) * depth
            e = 0.01
            normal = (-(height(x + e, z) - height(x - e, z)) / (2 * e), 1.0,
                      -(height(x, z + e) - height(x, z - e)) / (2 * e))
            length = math.sqrt(sum(c * c for c in normal))
            facing = max(0.0, (normal[0] * 0.5 + normal[1] * 0.7 + normal[2] * 0.51) / length)
            scene.vertex(x, height(x, z), z, x * 0.5 + 6, z * 0.5 + 6, min(1.0, 0.15 + 0.85 * facing))
    for row in range(rows):
        for column in range(columns):
            a = row * (columns + 1) + column
            b, c, d = a + 1, a + columns + 1, a + columns + 2
            scene.triangle(a, c, d, random.colour())
            scene.triangle(a, d, b, random.colour())
    for frame in range(FRAMES):
        a = turn(frame)
        scene.frames.append(camera((1.0 * math.sin(a), 12.5, 10.0 + math.cos(a)), 4 * math.sin(a),
                                   -52.0 + 3 * math.cos(a), 5 * math.sin(2 * a)))
    return scene


def alpha_scene():
    scene = SceneBuilder(False, 60.0, 0.5, 200.0)
    random = RandomNumbers(57)
    distance = extent = 14.0
    scene.quad([(-extent, -extent, -distance), (extent, -extent, -distance), (extent, extent, -distance),
                (-extent, extent, -distance)],
               [(0, 12), (12, 12), (12, 0), (0, 0)], [1, 0.8, 0.6, 0.9], (200, 200, 190))
    scene.opaque_triangles = 2
    for k in range(50):
        z = -(11.5 - 8.0 * k / 49.0)
        half = -z * 0.577 * random.between(0.40, 0.62)
        x, y = -z * 0.77 * random.between(-0.7, 0.7), -z * 0.577 * random.between(-0.7, 0.7)
        a, b, c = random.between(-35, 35), random.between(-35, 35), random.between(-180, 180)
        m = product(rotation("y", a), product(rotation("x", b), rotation("z", c)))
        corners = [(x + m[0] * p + m[4] * q, y + m[1] * p + m[5] * q, z + m[2] * p + m[6] * q)
                   for p, q in ((-half, -half), (half, -half), (half, half), (-half, half))]
        lights = [random.between(0.3, 1.0) for _ in range(4)]
        scene.quad(corners, [(0, 1), (1, 1), (1, 0), (0, 0)], lights, random.colour())
    for frame in range(FRAMES):
        a = turn(frame)
        scene.frames.append(camera((0.3 * math.sin(a), 0.2 * math.cos(a), 0), 3 * math.sin(a), 2 * math.cos(a),
                                   4 * math.sin(a)))
    return scene


SCENES = {
    "fill1": lambda model: fill_scene([0]),
    "fill": lambda model: fill_scene([2, 0, 3, 1]),
    "room": lambda model: room_scene(),
    "mesh": mesh_scene,
    "many": lambda model: many_scene(),
    "alpha": lambda model: alpha_scene(),
}
