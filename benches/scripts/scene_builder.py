"""What the generators of scenes share: random numbers, colours, matrices, a texture, and the scene file.

A scene file is little-endian and packed:

  magic "KSCN"; width, height, vertices, triangles, frames, flags (u32 each)     flag bit 0: back faces may be dropped
  opaque triangles (u32)             the triangles behind them are see-through and lie in back-to-front order
  vertical field of view in degrees, near, far (f32 each)
  palette: 256 x red, green, blue (u8)
  texture: 256 x 256 palette indices (u8), row 0 is v = 0, v grows downward
  vertices: x, y, z, u, v, light (f32); u and v of 1 are one repeat of the texture, light is 0 to 1
  triangles: three vertices (u32); red, green, blue, 255 (u8); counter-clockwise is the front
  frames: model-view matrices of 16 f32, column by column, axes right, up, toward the viewer

The same Python gives the same bytes everywhere, so that measurements of different days draw the same scenes.
"""
import math
import struct

FRONT_FACES_ONLY = 1


class RandomNumbers:
    """A linear congruential generator of 32 bits, of which the upper 24 are used."""

    def __init__(self, seed):
        self.state = seed

    def next(self):
        self.state = (self.state * 1664525 + 1013904223) & 0xFFFFFFFF
        return self.state >> 8

    def between(self, least, most):
        return least + (most - least) * (self.next() / float(1 << 24))

    def colour(self):
        hue = self.between(0.0, 1.0)
        return colour_of(hue, 0.5, self.between(0.5, 1.0))


def colour_of(hue, saturation, value):
    """Red, green and blue, 0 to 255, of a hue, a saturation and a value of 0 to 1."""
    sector = int(hue * 6.0) % 6
    part = hue * 6.0 - int(hue * 6.0)
    p = value * (1 - saturation)
    q = value * (1 - saturation * part)
    t = value * (1 - saturation * (1 - part))
    channels = [(value, t, p), (q, value, p), (p, value, t), (p, q, value), (t, p, value), (value, p, q)][sector]
    return tuple(max(0, min(255, int(channel * 255 + 0.5))) for channel in channels)


def make_texture():
    """The palette, of 16 hues in 16 steps of brightness, and 256 x 256 indices into it.

    The texture is made of blocks of 32 x 32 texels with dark borders; their gradients and hues make every flip, shift
    or transposition visible.
    """
    palette = [colour_of(hue / 16.0, 0.55, 0.25 + 0.75 * step / 15.0) for hue in range(16) for step in range(16)]
    random = RandomNumbers(7)
    texels = bytearray(256 * 256)
    for y in range(256):
        for x in range(256):
            column, row = x >> 5, y >> 5
            hue = (column + 3 * row) & 15
            step = ((x & 31) * 2 + (y & 31)) // 8 + (random.next() & 3)
            if (x & 31) == 0 or (y & 31) == 0:
                step = 0
            if column == 0 and row == 0:
                hue, step = 0, 15
            texels[y * 256 + x] = hue * 16 + max(0, min(15, step))
    return palette, bytes(texels)


# Matrices are lists of 16, column by column.
IDENTITY = [1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]


def product(a, b):
    return [sum(a[k * 4 + row] * b[column * 4 + k] for k in range(4)) for column in range(4) for row in range(4)]


def rotation(axis, degrees):
    c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    if axis == "x":
        return [1, 0, 0, 0, 0, c, s, 0, 0, -s, c, 0, 0, 0, 0, 1]
    if axis == "y":
        return [c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1]
    return [c, s, 0, 0, -s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]


def translation(x, y, z):
    return [1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1]


def camera(place, yaw, pitch, roll=0.0):
    """The view of a camera. Yaw 0 looks along -z; a positive yaw turns left, a positive pitch looks up."""
    matrix = product(rotation("y", -yaw), translation(-place[0], -place[1], -place[2]))
    return product(rotation("z", -roll), product(rotation("x", -pitch), matrix))


class SceneBuilder:
    def __init__(self, front_faces_only, field_of_view, nearest, farthest):
        self.vertices, self.triangles, self.frames = [], [], []
        self.front_faces_only = front_faces_only
        self.field_of_view, self.nearest, self.farthest = field_of_view, nearest, farthest
        self.opaque_triangles = None  # all of them

    def vertex(self, x, y, z, u, v, light):
        """Adds a vertex and gives its index."""
        self.vertices.append((x, y, z, u, v, light))
        return len(self.vertices) - 1

    def triangle(self, a, b, c, colour):
        self.triangles.append((a, b, c, colour))

    def quad(self, corners, texture_places, lights, colour):
        """Adds two triangles over four corners that run counter-clockwise when seen from the front."""
        first = len(self.vertices)
        for corner, place, light in zip(corners, texture_places, lights):
            self.vertex(*corner, *place, light)
        self.triangle(first, first + 1, first + 2, colour)
        self.triangle(first, first + 2, first + 3, colour)

    def write(self, path, palette, texels):
        opaque = len(self.triangles) if self.opaque_triangles is None else self.opaque_triangles
        parts = [
            struct.pack("<4s6I", b"KSCN", 640, 480, len(self.vertices), len(self.triangles), len(self.frames),
                        FRONT_FACES_ONLY if self.front_faces_only else 0),
            struct.pack("<I3f", opaque, self.field_of_view, self.nearest, self.farthest),
            bytes(channel for colour in palette for channel in colour), texels,
            *(struct.pack("<6f", *vertex) for vertex in self.vertices),
            *(struct.pack("<3I4B", a, b, c, *colour, 255) for a, b, c, colour in self.triangles),
            *(struct.pack("<16f", *matrix) for matrix in self.frames)]
        path.write_bytes(b"".join(parts))
