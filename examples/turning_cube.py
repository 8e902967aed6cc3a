#!/usr/bin/env python3
"""The host of turning_cube.c from another language: the same picture.

    turning_cube.py RECORDS.json LIBRARY FILE.ppm

Nothing of the records is written down here. They are made from the list that comes with the library
(docs/records.json), as a binding for any other language can be. Python and the library must have the same width, 32 or
64 bits.
"""
import ctypes
import json
import struct
import sys

SIZE, PICTURES, SIDES, TEXELS = 160, 4, 6, 64
WIDTH = PICTURES * SIZE

# The sides: the direction that a side looks in, and what is right and up for somebody who looks at it.
AXES = [((0, 0, -1), (1, 0, 0), (0, 1, 0)), ((1, 0, 0), (0, 0, 1), (0, 1, 0)), ((0, 0, 1), (-1, 0, 0), (0, 1, 0)),
        ((-1, 0, 0), (0, 0, -1), (0, 1, 0)), ((0, 1, 0), (1, 0, 0), (0, 0, 1)), ((0, -1, 0), (1, 0, 0), (0, 0, -1))]
# The corners of a side: counter-clockwise for somebody who looks at it, from the upper left one.
CORNERS = [(-1, 1, 0, 0), (-1, -1, 0, 1), (1, -1, 1, 1), (1, 1, 1, 0)]


class Binding:
    """The records, constants and functions of the library, made from their list."""

    NUMBERS = {("unsigned", 1): ctypes.c_uint8, ("unsigned", 2): ctypes.c_uint16, ("unsigned", 4): ctypes.c_uint32,
               ("signed", 4): ctypes.c_int32, ("float", 4): ctypes.c_float}

    def __init__(self, described, library):
        self.bits = 8 * struct.calcsize("P")
        self.types = {name: self.NUMBERS[number["kind"], number["bytes"]]
                      for name, number in described["numbers"].items()}
        self.callbacks = {}
        for record in described["records"]:
            self.types[record["name"]] = self.record(record)
        for constant in described["constants"]:
            setattr(self, constant["name"], constant["value"])
        for described_function in described["functions"]:
            function = getattr(library, described_function["name"])
            function.restype = self.type_of(described_function["result"])
            function.argtypes = [self.type_of(p["type"]) for p in described_function["parameters"]]
            setattr(self, described_function["field"], function)

    def type_of(self, name):
        """Pointers of all kinds are plain addresses."""
        if name == "void":
            return None
        return ctypes.c_void_p if "*" in name else self.types.get(name, ctypes.c_void_p)

    def record(self, record):
        """A structure with each field at its place; the bytes between them belong to the host."""
        fields, end = [], 0
        for field in record["fields"]:
            at = field[f"offset{self.bits}"]
            if at > end:
                fields.append((f"gap{end}", ctypes.c_uint8 * (at - end)))
            kind = self.type_of(field["type"]) if field["kind"] == "value" else ctypes.c_void_p
            fields.append((field["name"], kind))
            end = at + ctypes.sizeof(kind)
            if field["kind"] == "function":
                self.callbacks[field["name"]] = ctypes.CFUNCTYPE(
                    self.type_of(field["result"]), *(self.type_of(p["type"]) for p in field["parameters"]))
        size = record[f"size{self.bits}"]
        if size > end:
            fields.append((f"gap{end}", ctypes.c_uint8 * (size - end)))
        made = type(record["name"], (ctypes.Structure,), {"_pack_": 1, "_fields_": fields})
        assert ctypes.sizeof(made) == size
        return made


class Host:
    """The cube, with everything that the renderer reads."""

    def __init__(self, binding):
        self.b = binding
        self.kept = []  # what the records point at must not go away
        self.cosine, self.sine = 1.0, 0.0
        vertices = 4 * SIDES
        self.camera_vertices = (self.b.types["CameraVertex"] * vertices)()
        self.shades = (self.b.types["VertexShade"] * vertices)()
        self.outcodes = (ctypes.c_uint32 * vertices)(*[self.b.outcodeAll] * vertices)  # the whole cube is in view
        self.context = self.new("HostContext", cameraVertices=self.camera_vertices,
                                screenVertices=(self.b.types["ScreenVertex"] * vertices)(), vertexShades=self.shades,
                                vertexOutcodes=self.outcodes, vertexStamps=(ctypes.c_uint32 * vertices)(),
                                alloc=self.allocate, realloc=self.reallocate, free=self.release,
                                bitsPerPixel=self.b.bitsPerPixel565)
        libc = ctypes.CDLL(None)
        self.calloc, self.c_realloc, self.c_free = libc.calloc, libc.realloc, libc.free
        self.calloc.restype = self.c_realloc.restype = ctypes.c_void_p
        self.calloc.argtypes = [ctypes.c_size_t, ctypes.c_size_t]
        self.c_realloc.argtypes = [ctypes.c_void_p, ctypes.c_size_t]
        self.c_free.argtypes = [ctypes.c_void_p]

    def new(self, record, **fields):
        """A record with some of its fields; the others are 0. In a field that holds an address, arrays, records and
        functions become theirs."""
        made = self.b.types[record]()
        kinds = dict(made._fields_)
        for name, value in fields.items():
            if callable(value):
                value = self.b.callbacks[name](value)
                self.kept.append(value)
                value = ctypes.cast(value, ctypes.c_void_p)
            elif kinds[name] is ctypes.c_void_p and not isinstance(value, int):
                self.kept.append(value)
                value = ctypes.addressof(value)
            setattr(made, name, value)
        self.kept.append(made)
        return made

    def allocate(self, count, size):
        return self.calloc(count, size)

    def reallocate(self, block, size):
        return self.c_realloc(block, size)

    def release(self, block):
        self.c_free(block)

    def turn(self, v):
        z = self.cosine * v[2] - self.sine * v[0]
        return (self.cosine * v[0] + self.sine * v[2], 0.8 * v[1] + 0.6 * z, 0.8 * z - 0.6 * v[1])

    # What the renderer asks of its host.

    def update(self, _cube):
        before = self.cosine
        self.cosine = 0.8 * self.cosine - 0.6 * self.sine
        self.sine = 0.8 * self.sine + 0.6 * before

    def test_bounds(self, _drawn, cube, _view):
        self.b.types["SceneObject"].from_address(cube).visible = 1

    def transform(self, _cube, _view):
        self.normals = [self.turn(normal) for normal, _, _ in AXES]

    def light(self, _drawn, _cube, _view):
        for side, n in enumerate(self.normals):
            facing = (3 * n[1] - 2 * n[0] - 6 * n[2]) / 7
            for corner in range(4):
                self.shades[4 * side + corner].intensity = 50 + 150 * facing if facing > 0 else 50

    def prepare_vertices(self, _drawn, _cube, _view):
        for side, (normal, right, up) in enumerate(AXES):
            for corner, (x, y, _, _) in enumerate(CORNERS):
                place = self.turn([normal[i] + x * right[i] + y * up[i] for i in range(3)])
                vertex = self.camera_vertices[4 * side + corner]
                vertex.x, vertex.y, vertex.z = place[0], place[1], place[2] + 3
            face = self.faces[side]
            face.normalX, face.normalY, face.normalZ = self.normals[side]

    def test_face(self, address):
        face = self.b.types["SceneFace"].from_address(address)
        v = self.camera_vertices[ctypes.c_int32.from_address(face.vertexIndices).value]
        return int(face.normalX * v.x + face.normalY * v.y + face.normalZ * v.z < 0)

    def build(self):
        head = self.new("TextureImage", bitsPerTexel=self.b.bitsPerTexelPalettised, indexMask=TEXELS * TEXELS - 1,
                        rowShift=6, width=TEXELS, height=TEXELS)
        texels = bytes((i // 8 + i // TEXELS // 8) & 1 for i in range(TEXELS * TEXELS))
        image = ctypes.create_string_buffer(bytes(head) + texels)
        palette = ctypes.create_string_buffer(bytes([60, 90, 230, 0, 150, 220, 250, 0]), 1024)
        texture = self.new("TextureMap", image=image, palette=palette)
        white = self.new("MaterialColour", red=255, green=255, blue=255, packed=0xFFFF)
        self.material = self.new("SceneMaterial", specularColour=white, tintColour=white, shininess=50,
                                 specularLevel=40, textureMap=texture, materialFlags=self.new("MaterialFlags"))
        face_test = self.new("FaceTest", test=self.test_face)
        corners = (self.b.types["TexCoord"] * 4)(*[(u, v) for _, _, u, v in CORNERS])
        self.faces = [self.new("SceneFace", vertexCount=4, texCoords=corners, material=self.material,
                               vertexIndices=(ctypes.c_int32 * 4)(*range(4 * side, 4 * side + 4)), faceTest=face_test)
                      for side in range(SIDES)]
        functions = self.new("ObjectFunctions", update=self.update, transform=self.transform,
                             selectLevel=lambda cube, _view: cube, testBounds=self.test_bounds, light=self.light,
                             prepareVertices=self.prepare_vertices)
        pointers = (ctypes.c_void_p * SIDES)(*map(ctypes.addressof, self.faces))
        return self.new("SceneObject", faceCount=SIDES, faces=pointers,
                        materials=self.new("MaterialNode", material=self.material),
                        groupFlag=(ctypes.c_int32 * 1)(), objectClass=self.new("ObjectClass", functions=functions))

    def draw_at(self, left, cube, frame_buffer):
        half = SIZE / 2
        projection = self.new("ViewProjection", right=left + SIZE, bottom=SIZE, centreX=left + half, centreY=half,
                              scaleX=half, scaleY=half, invScaleX=1 / half, invScaleY=1 / half,
                              centreXOverScaleX=(left + half) / half, centreYOverScaleY=1)
        functions = self.new("CameraFunctions", prepare=lambda _camera, _view: None)
        view = self.new("RenderView", firstObject=cube, camera=self.new("SceneCamera", functions=functions), left=left,
                        nearZ=0.5, farZ=100, pitch=WIDTH, projection=projection)
        self.b.render(ctypes.addressof(view), ctypes.addressof(frame_buffer), 0, self.b.frameClear)


def main():
    if len(sys.argv) != 4:
        sys.exit("usage: turning_cube.py RECORDS.json LIBRARY FILE.ppm")
    with open(sys.argv[1], encoding="utf-8") as file:
        binding = Binding(json.load(file), ctypes.CDLL(sys.argv[2]))
    host = Host(binding)
    binding.initRender(ctypes.addressof(host.context))
    cube = host.build()
    material = ctypes.addressof(host.material)
    assert binding.addMaterial(material) and binding.setMaterialRenderState(material, binding.stateLit)
    for face in host.faces:
        assert binding.addFace(ctypes.addressof(face))

    frame_buffer = (ctypes.c_uint16 * (WIDTH * SIZE))()
    for picture in range(PICTURES):
        host.draw_at(picture * SIZE, cube, frame_buffer)

    for face in host.faces:
        binding.releaseFace(ctypes.addressof(face))
    binding.releaseMaterial(material)
    with open(sys.argv[3], "wb") as file:
        file.write(b"P6 %d %d 255\n" % (WIDTH, SIZE))
        for pixel in frame_buffer:
            file.write(bytes([(pixel >> 11) * 255 // 31, (pixel >> 5 & 63) * 255 // 63, (pixel & 31) * 255 // 31]))


main()
