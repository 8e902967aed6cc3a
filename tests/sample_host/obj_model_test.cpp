#include "sample_host/models/obj_model.h"
#include "tests/sample_host/files.h"

#include <doctest/doctest.h>

#include <stdexcept>

using namespace sample_host;

namespace {

const std::string square = "v 0 0 0\nv 2 0 0\nv 2 2 0\nv 0 2 0\nvt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\n";

// The sentence that reading a model fails with; empty when it does not fail.
std::string complaint(const std::string& file)
{
    try {
        readObjModel(file);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

} // namespace

TEST_CASE("a square becomes two triangles in the sphere of radius 1, its v counted from the upper edge")
{
    const Files files;
    const Model model = readObjModel(files.write("a.obj", square + "f 1/1 2/2 3/3 4/4\n"));
    REQUIRE(model.mesh.polygons.size() == 2);
    REQUIRE(model.mesh.positions.size() == 4);
    for (const Vector& position : model.mesh.positions) CHECK(length(position) == doctest::Approx(1));
    for (const Vector& normal : model.mesh.normals) CHECK(normal.z == doctest::Approx(1));
    for (const Mesh::Corner& corner : model.mesh.corners)
        CHECK((corner.v == 0) == (model.mesh.positions[std::size_t(corner.vertex)].y > 0));
}

TEST_CASE("a face of twelve corners becomes ten triangles")
{
    std::string text, face = "f";
    for (int i = 0; i < 12; ++i) {
        text += "v " + std::to_string(cosineOfTurn(i / 12.0)) + " " + std::to_string(sineOfTurn(i / 12.0)) + " 0\n";
        face += " " + std::to_string(i + 1);
    }
    const Files files;
    const Model model = readObjModel(files.write("a.obj", text + face + "\n"));
    CHECK(model.mesh.polygons.size() == 10);
    for (const Mesh::Polygon& polygon : model.mesh.polygons) CHECK(polygon.cornerCount == 3);
}

TEST_CASE("a model without materials gets one with an image, and corners without coordinates get some")
{
    const Files files;
    const Model model = readObjModel(files.write("a.obj", square + "f 1 2 3\n"));
    REQUIRE(model.materials.size() == 1);
    CHECK(model.materials[0].image);
    CHECK(model.mesh.corners[0].u != model.mesh.corners[1].u);
}

TEST_CASE("a model that cannot be used is refused with a sentence that names its file")
{
    const Files files;
    const auto refused = [&](const std::string& content, const char* why) {
        const std::string sentence = complaint(files.write("a.obj", content));
        CHECK(sentence.find("a.obj") != std::string::npos);
        CHECK(sentence.find(why) != std::string::npos);
    };
    refused("", "no vertices");
    refused("\xff\xfe\x01\x02", "no vertices");
    refused(square, "no faces");
    refused(square + "f 1 2 9\n", "line 9: a face names a vertex that does not exist");
    refused(square + "f 1/9 2/2 3/3\n", "line 9: a face names a texture coordinate that does not exist");
    refused(square + "f 1//5 2//5 3//5\n", "line 9: a face names a normal that does not exist");
    refused(square + "f 1 2 3\n\nf -9 2 3\n", "line 11: a face names a vertex that does not exist");
    refused(square + "f 0 1 2\n", "line 9: a face names a vertex that does not exist");
    refused("v 0 0 0\nv 1e999 0 0\nv 0 1 0\nf 1 2 3\n", "not finite");
    refused("v 1 1 1\nv 1 1 1\nv 1 1 1\nf 1 2 3\n", "one place");
    CHECK(complaint(files.name("missing.obj")).find("missing.obj") != std::string::npos);
    CHECK(complaint(files.name(".")).find("cannot be read") != std::string::npos);
}

TEST_CASE("an image that cannot be used is refused by its name, its material, the line that asks for it, and what is "
          "expected")
{
    const Files files;
    files.write("a.mtl", "# materials\r\nnewmtl stone\r\nKd 1 1 1\r\nnewmtl old wood\r\nmap_Kd .\\wood.png\r\n");
    const std::string model = files.write("a.obj", "mtllib a.mtl\nusemtl old wood\n" + square + "f 1/1 2/2 3/3\n");
    const auto complaintNames = [&](const char* what) {
        const std::string sentence = complaint(model);
        CAPTURE(sentence);
        CHECK(sentence.find("a.mtl', line 5: ") != std::string::npos);
        CHECK(sentence.find("/wood.png' of the material 'old wood' ") != std::string::npos);
        CHECK(sentence.find(what) != std::string::npos);
        CHECK(sentence.find("expected is a whole PNG, JPEG") != std::string::npos);
    };
    complaintNames("cannot be opened");
    files.write("wood.png", "\x89PNG\r\n\x1a\nand nothing more");
    complaintNames("cannot be read");
    // The header of a Netpbm picture of three times as many pixels a side as are read.
    files.write("wood.png", "P6\n24576 24576\n255\n");
    complaintNames("has 24576 x 24576 pixels");
}

TEST_CASE("a face that goes round its outline several times is drawn once, and its line is told")
{
    const Files files;
    std::string face = "f";
    for (int i = 0; i < 234; ++i) face += " 1 2 3 4";
    const Model model = readObjModel(files.write("a.obj", "# a square\n" + square + face + "\n"));
    CHECK(model.mesh.polygons.size() == 2);
    REQUIRE(model.remarks.size() == 1);
    CHECK(model.remarks[0].find(
              "a.obj', line 10: a face repeats corners and is drawn without the repetitions, in 2 triangles")
          != std::string::npos);
}

TEST_CASE("faces without an area are left out, and told once for all of them")
{
    const Files files;
    const std::string faces = "f 1 2 2\nf 1 2 3\nf 1 2 1 2\nf 1 2 5\n";
    const Model model = readObjModel(files.write("a.obj", square + "v 4 0 0\n" + faces));
    CHECK(model.mesh.polygons.size() == 1);
    REQUIRE(model.remarks.size() == 1);
    CHECK(model.remarks[0].find("a.obj', line 10: a face has no area and is left out (and so 2 more)")
          != std::string::npos);
}

TEST_CASE("a face of two corners is left out, and a model with nothing else is refused")
{
    const Files files;
    const Model model = readObjModel(files.write("a.obj", square + "f 1 2\nf 1 2 3\n"));
    CHECK(model.mesh.polygons.size() == 1);
    REQUIRE(model.remarks.size() == 1);
    CHECK(model.remarks[0].find("line 9: a face has fewer than three corners") != std::string::npos);
    CHECK(complaint(files.write("b.obj", square + "f 1 2\n")).find("no faces that can be drawn") != std::string::npos);
}

TEST_CASE("a well-formed model has no remarks, and its faces count their vertices from the start or from the end")
{
    const Files files;
    const Model fromStart = readObjModel(files.write("a.obj", square + "f 1/1 2/2 3/3\n"));
    const Model fromEnd = readObjModel(files.write("b.obj", square + "f -4/-4 -3/-3 -2/-2\n"));
    CHECK(fromStart.remarks.empty());
    for (std::size_t i = 0; i < 3; ++i) {
        CHECK(fromStart.mesh.positions[i].x == fromEnd.mesh.positions[i].x);
        CHECK(fromStart.mesh.corners[i].u == fromEnd.mesh.corners[i].u);
    }
}
