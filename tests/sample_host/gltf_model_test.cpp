#include "sample_host/models/gltf_model.h"
#include "sample_host/models/model_file.h"
#include "tests/sample_host/files.h"

#include <doctest/doctest.h>

#include <cstring>
#include <stdexcept>

using namespace sample_host;

namespace {

// The bytes of a buffer.
struct Bytes : std::string {
    template <class Number>
    Bytes& add(std::initializer_list<Number> numbers)
    {
        for (const Number number : numbers) append(reinterpret_cast<const char*>(&number), sizeof number);
        return *this;
    }
};

std::string base64(const std::string& bytes)
{
    const char* digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        u32 bits = 0;
        for (std::size_t j = 0; j < 3; ++j)
            bits = bits << 8 | (i + j < bytes.size() ? u32(std::uint8_t(bytes[i + j])) : 0);
        for (u32 j = 0; j < 4; ++j) text += i + j > bytes.size() ? '=' : digits[bits >> (18 - 6 * j) & 63];
    }
    return text;
}

// Four corners of a square of side 2 in 48 bytes, then 6 indices in 12 bytes, then 4 colours in 16 bytes.
Bytes squareBytes()
{
    Bytes bytes;
    bytes.add<float>({-1, -1, 0, 1, -1, 0, 1, 1, 0, -1, 1, 0});
    bytes.add<u16>({0, 1, 2, 0, 2, 3});
    bytes.add<std::uint8_t>({255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 51, 51, 51, 255});
    return bytes;
}

const std::string accessors =
    R"("bufferViews":[{"buffer":0,"byteLength":48},{"buffer":0,"byteOffset":48,"byteLength":12},)"
    R"({"buffer":0,"byteOffset":60,"byteLength":16}],)"
    R"("accessors":[{"bufferView":0,"componentType":5126,"count":4,"type":"VEC3","min":[-1,-1,0],"max":[1,1,0]},)"
    R"({"bufferView":1,"componentType":5123,"count":6,"type":"SCALAR"},)"
    R"({"bufferView":2,"componentType":5121,"normalized":true,"count":4,"type":"VEC4"}])";

const std::string plainPrimitive = R"({"attributes":{"POSITION":0},"indices":1})";

// A file of one mesh; `more` goes before the end of its outermost object.
std::string gltf(const std::string& primitives, const std::string& node = R"({"mesh":0})", const std::string& more = "",
                 const std::string& bufferPlace = R"("uri":"data:application/octet-stream;base64,)"
                                                  + base64(squareBytes()) + R"(",)")
{
    return R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],"nodes":[)" + node
           + R"(],"meshes":[{"primitives":[)" + primitives + R"(]}],"buffers":[{)" + bufferPlace
           + R"("byteLength":76}],)" + accessors + more + "}";
}

std::string complaint(const std::string& file)
{
    try {
        readGltfModel(file);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

// Twice the area of a triangle, as seen from Z.
double areaOf(const Mesh& mesh, std::size_t polygon)
{
    const auto place = [&](std::size_t i) {
        return mesh.positions[std::size_t(mesh.corners[mesh.polygons[polygon].firstCorner + i].vertex)];
    };
    return cross(place(1) - place(0), place(2) - place(0)).z;
}

} // namespace

TEST_CASE("a glTF file becomes triangles in the sphere of radius 1, seen from the side that its corners go round")
{
    const Files files;
    const Model model = readGltfModel(files.write("a.gltf", gltf(plainPrimitive)));
    CHECK(model.name == "a");
    CHECK(model.remarks.empty());
    REQUIRE(model.mesh.polygons.size() == 2);
    REQUIRE(model.mesh.positions.size() == 4);
    for (const Vector& position : model.mesh.positions) CHECK(length(position) == doctest::Approx(1));
    for (const Vector& normal : model.mesh.normals) CHECK(normal.z == doctest::Approx(1));
    for (std::size_t i = 0; i < 2; ++i)
        CHECK(areaOf(model.mesh, i) == doctest::Approx(2)); // the sides of the square are the root of 2
}

TEST_CASE("a GLB file is the same in one piece, and its form is told from the first bytes")
{
    std::string text = gltf(plainPrimitive, R"({"mesh":0})", "", "");
    while (text.size() % 4 != 0) text += ' ';
    const Bytes buffer = squareBytes();
    Bytes file;
    file += "glTF";
    file.add<u32>({2, u32(12 + 8 + text.size() + 8 + buffer.size()), u32(text.size()), 0x4e4f534a});
    file += text;
    file.add<u32>({u32(buffer.size()), 0x004e4942});
    file += buffer;
    const Files files;
    const Model model = readModel(files.write("a.GLB", file));
    CHECK(model.mesh.polygons.size() == 2);
    CHECK(model.mesh.positions.size() == 4);
    CHECK(readGltfModel(files.write("a.gltf", file)).mesh.polygons.size() == 2);
}

TEST_CASE("nodes move, turn and stretch their meshes, and a node that mirrors keeps the outside outside")
{
    const Files files;
    // A quarter turn around Z sends X to Y; the stretched X becomes the longer side in Y.
    const Model turned = readGltfModel(files.write(
        "a.gltf", gltf(plainPrimitive,
                       R"({"mesh":0,"translation":[7,8,9],"scale":[3,1,1],"rotation":[0,0,0.70710678,0.70710678]})")));
    const Vector& corner = turned.mesh.positions[0]; // was (-1, -1), is (-3, -1) and then (1, -3)
    CHECK(corner.x == doctest::Approx(1 / std::sqrt(10.0)));
    CHECK(corner.y == doctest::Approx(-3 / std::sqrt(10.0)));

    const Model mirrored = readGltfModel(
        files.write("b.gltf", gltf(plainPrimitive, R"({"mesh":0,"matrix":[-1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1]})")));
    CHECK(areaOf(mirrored.mesh, 0) == doctest::Approx(2));
    for (const Vector& normal : mirrored.mesh.normals) CHECK(normal.z == doctest::Approx(1));
}

TEST_CASE("the corners of a sparse accessor are drawn where the file moves them")
{
    // The square's indices begin with 0 and 1, so a run of two of them says that corners 0 and 1 are replaced.
    const Files files;
    const auto read = [&](const std::string& sparse) {
        std::string text = gltf(plainPrimitive);
        const std::string end = R"("max":[1,1,0]})";
        text.replace(text.find(end), end.size(), R"("max":[1,1,0],"sparse":)" + sparse + "}");
        return readGltfModel(files.write("a.gltf", text)).mesh.positions;
    };
    // By themselves: nothing moves.
    const auto same = read(R"({"count":2,"indices":{"bufferView":1,"componentType":5123},"values":{"bufferView":0}})");
    CHECK(same[0].x == doctest::Approx(-std::sqrt(0.5)));
    CHECK(same[2].y == doctest::Approx(std::sqrt(0.5)));
    // Corner 0 takes the place of corner 1, and corner 1 that of corner 2: the square becomes a triangle.
    const auto moved = read(R"({"count":2,"indices":{"bufferView":1,"componentType":5123},)"
                            R"("values":{"bufferView":0,"byteOffset":12}})");
    REQUIRE(moved.size() == 4);
    CHECK(moved[0].x == doctest::Approx(std::sqrt(0.5)));
    CHECK(moved[0].y == doctest::Approx(-std::sqrt(0.5)));
    CHECK(moved[1].y == doctest::Approx(std::sqrt(0.5)));
}

TEST_CASE("strips and fans become triangles of one direction, and points and lines are left out with a remark")
{
    const Files files;
    // Corners 0 1 2 3 go round the square: as a fan both triangles go its way; as a strip 1 3 2 goes the other way.
    const Model fan = readGltfModel(files.write("a.gltf", gltf(R"({"attributes":{"POSITION":0},"mode":6})")));
    REQUIRE(fan.mesh.polygons.size() == 2);
    CHECK(areaOf(fan.mesh, 0) == doctest::Approx(2));
    CHECK(areaOf(fan.mesh, 1) == doctest::Approx(2));
    const Model strip = readGltfModel(files.write("b.gltf", gltf(R"({"attributes":{"POSITION":0},"mode":5})")));
    REQUIRE(strip.mesh.polygons.size() == 2);
    CHECK(areaOf(strip.mesh, 0) == doctest::Approx(2));
    CHECK(areaOf(strip.mesh, 1) == doctest::Approx(-2));
    const Model lines =
        readGltfModel(files.write("c.gltf", gltf(plainPrimitive + R"(,{"attributes":{"POSITION":0},"mode":1})")));
    CHECK(lines.mesh.polygons.size() == 2);
    REQUIRE(lines.remarks.size() == 1);
    CHECK(lines.remarks[0].find("points and lines are left out") != std::string::npos);
}

TEST_CASE("the base colour, the opacity and both sides of a material are drawn")
{
    const Files files;
    const auto withMaterial = [&](const std::string& material) {
        return readGltfModel(files.write("a.gltf", gltf(R"({"attributes":{"POSITION":0},"indices":1,"material":0})",
                                                        R"({"mesh":0})", R"(,"materials":[)" + material + "]")));
    };
    const Model red = withMaterial(R"({"name":"red","pbrMetallicRoughness":{"baseColorFactor":[1,0,0.2177,1]}})");
    CHECK(red.materials[0].name == "red");
    CHECK(red.materials[0].diffuse.red == 255);
    CHECK(red.materials[0].diffuse.green == 0);
    CHECK(red.materials[0].diffuse.blue == 128); // half as bright to the eye is 0.5 to the power of 2.2 of the light
    CHECK(red.mesh.polygons.size() == 2);

    const Model glass = withMaterial(R"({"name":"glass","alphaMode":"BLEND","doubleSided":true,)"
                                     R"("pbrMetallicRoughness":{"baseColorFactor":[1,1,1,0.3]}})");
    CHECK(glass.materials[0].transparency == 50);
    CHECK(glass.mesh.polygons.size() == 4);
    REQUIRE(glass.remarks.size() == 1);
    CHECK(glass.remarks[0].find("the opacity of the material 'glass' is 0.3, and it is drawn half transparent")
          != std::string::npos);
}

TEST_CASE("the colours of a glTF file's vertices are drawn, multiplied by the base colour")
{
    const Files files;
    const Model model = readGltfModel(files.write(
        "a.gltf", gltf(R"({"attributes":{"POSITION":0,"COLOR_0":2},"indices":1,"material":0})", R"({"mesh":0})",
                       R"(,"materials":[{"pbrMetallicRoughness":{"baseColorFactor":[1,0,1,1]}}])")));
    REQUIRE(model.mesh.colours.size() == 4);
    CHECK(model.mesh.colours[0].red == 255);
    CHECK(model.mesh.colours[1].green == 0);
    CHECK(model.mesh.colours[3].red == 51);
    CHECK(model.mesh.colours[3].green == 0);
    CHECK(model.materials[0].vertexColours);
}

TEST_CASE("an image that a glTF file lacks is remarked on by its name and material")
{
    const Files files;
    const Model model = readGltfModel(files.write(
        "a.gltf", gltf(R"({"attributes":{"POSITION":0},"indices":1,"material":0})", R"({"mesh":0})",
                       R"(,"images":[{"uri":"wood.png"}],"textures":[{"source":0}],)"
                       R"("materials":[{"name":"oak","pbrMetallicRoughness":{"baseColorTexture":{"index":0}}}])")));
    REQUIRE(model.remarks.size() == 1);
    CHECK(model.remarks[0].find("/wood.png' of the material 'oak' cannot be opened") != std::string::npos);
    CHECK(model.remarks[0].find("the material is drawn in its colour") != std::string::npos);
    CHECK(!model.materials[0].image);
}

TEST_CASE("an image inside of a glTF file is read")
{
    const Files files;
    // A Netpbm picture of 8 x 8 pixels of one colour.
    std::string picture = "P6\n8 8\n255\n";
    for (int i = 0; i < 64; ++i) picture += "\x10\x20\x30";
    const Model model = readGltfModel(files.write(
        "a.gltf", gltf(R"({"attributes":{"POSITION":0},"indices":1,"material":0})", R"({"mesh":0})",
                       R"(,"images":[{"uri":"data:image/png;base64,)" + base64(picture)
                           + R"("}],"textures":[{"source":0}],)"
                             R"("materials":[{"pbrMetallicRoughness":{"baseColorTexture":{"index":0}}}])")));
    CHECK(model.remarks.empty());
    REQUIRE(model.materials[0].image);
    CHECK(model.materials[0].image->width == 8);
    CHECK(model.materials[0].image->colour(0).blue == 0x30);
}

TEST_CASE("a glTF file that cannot be used is refused with a sentence that names it and the part that is wrong")
{
    const Files files;
    const auto refused = [&](const std::string& content, const char* why) {
        const std::string sentence = complaint(files.write("a.gltf", content));
        CAPTURE(sentence);
        CHECK(sentence.find("a.gltf") != std::string::npos);
        CHECK(sentence.find(why) != std::string::npos);
        CHECK(sentence.find('\n') == std::string::npos);
    };
    refused("", "cannot be read");
    refused("{", "cannot be read");
    refused("glTF and nothing more", "cannot be read");
    refused(R"({"asset":{"version":"1.0"}})", "expected is 2.0");
    refused(R"({"asset":{"version":"2.0"}})", "no triangles");
    refused(gltf(R"({"attributes":{"POSITION":9},"indices":1})"),
            "mesh 0, primitive 0, POSITION names the accessor 9, of which there are 3");
    refused(gltf(R"({"attributes":{"POSITION":1}})"), "its elements have 1 numbers; expected are 3");
    refused(gltf(plainPrimitive, R"({"mesh":4})"), "the mesh 4");
    refused(gltf(plainPrimitive, R"({"mesh":0,"children":[0]})"), "the node 0 has more than one parent");
    std::string tooLong = gltf(plainPrimitive);
    tooLong.replace(tooLong.find(R"("count":4)"), 9, R"("count":5)");
    refused(tooLong, "accessor 0: its elements do not lie inside of a buffer");
    std::string noSuchVertex = gltf(plainPrimitive);
    noSuchVertex.replace(noSuchVertex.find(R"("count":4)"), 9, R"("count":3)");
    refused(noSuchVertex, "names a vertex that does not exist");
    CHECK(complaint(files.name("missing.glb")).find("missing.glb") != std::string::npos);
}
