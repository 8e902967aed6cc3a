#include "sample_host/models/obj_model.h"
#include "tests/sample_host/files.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <map>
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
    refused("v 0 0 0\nv 1e999 0 0\nv 0 1 0\nf 1 2 3\n", "line 4: a face has corners that are not finite");
    refused("v nan 0 0\nv 0 nan 0\nf 1 2 2\n", "none of its vertices is finite");
    refused("v 1 1 1\nv 1 1 1\nv 1 1 1\nf 1 2 3\n", "one place");
    CHECK(complaint(files.name("missing.obj")).find("missing.obj") != std::string::npos);
    CHECK(complaint(files.name(".")).find("cannot be read") != std::string::npos);
}

TEST_CASE(
    "an image that cannot be used is remarked on once by its name, its material, the line that asks for it, and what "
    "is expected, and its materials are drawn in their colours")
{
    const Files files;
    files.write("a.mtl", "# materials\r\nnewmtl stone\r\nKd 1 1 1\r\nnewmtl old wood\r\nKd 0 1 0\r\nmap_Kd "
                         ".\\wood.png\r\nnewmtl new wood\r\nmap_Kd ./wood.png\r\n");
    const std::string name = files.write("a.obj", "mtllib a.mtl\nusemtl old wood\n" + square + "f 1/1 2/2 3/3\n");
    const auto remarkNames = [&](const char* what) {
        const Model model = readObjModel(name);
        REQUIRE(model.remarks.size() == 1);
        const std::string& sentence = model.remarks[0];
        CAPTURE(sentence);
        CHECK(sentence.find("a.mtl', line 6: ") != std::string::npos);
        CHECK(sentence.find("/wood.png' of the material 'old wood' ") != std::string::npos);
        CHECK(sentence.find(what) != std::string::npos);
        CHECK(sentence.find("expected is a whole PNG, JPEG") != std::string::npos);
        REQUIRE(model.materials.size() == 3);
        CHECK(!model.materials[1].image);
        CHECK(model.materials[1].diffuse.green == 255);
        CHECK(model.materials[1].diffuse.red == 0);
    };
    remarkNames("cannot be opened");
    files.write("wood.png", "\x89PNG\r\n\x1a\nand nothing more");
    remarkNames("cannot be read");
    // The header of a Netpbm picture of three times as many pixels a side as are read.
    files.write("wood.png", "P6\n24576 24576\n255\n");
    remarkNames("has 24576 x 24576 pixels");
}

TEST_CASE("an opacity becomes opaque or half, whichever is nearer, and other ones are remarked on with their line")
{
    const Files files;
    files.write("a.mtl", "newmtl glass\nd 0.5\nnewmtl mist\nKd 1 1 1\nd 0.2\nnewmtl wax\nTr 0.1\nnewmtl stone\n");
    const Model model = readObjModel(files.write("a.obj", "mtllib a.mtl\nusemtl glass\n" + square + "f 1 2 3\n"));
    REQUIRE(model.materials.size() == 4);
    CHECK(model.materials[0].transparency == 50);
    CHECK(model.materials[1].transparency == 50);
    CHECK(model.materials[2].transparency == 0);
    CHECK(model.materials[3].transparency == 0);
    REQUIRE(model.remarks.size() == 2);
    CHECK(model.remarks[0].find("a.mtl', line 5: the opacity of the material 'mist' is 0.2, and it is drawn half "
                                "transparent")
          != std::string::npos);
    CHECK(model.remarks[1].find("a.mtl', line 7: the opacity of the material 'wax' is 0.9, and it is drawn opaque")
          != std::string::npos);
}

TEST_CASE("a material file or a material that is not there is remarked on with its line")
{
    const Files files;
    const Model without = readObjModel(files.write("a.obj", "mtllib none.mtl\nusemtl stone\n" + square + "f 1 2 3\n"));
    REQUIRE(without.remarks.size() == 1);
    CHECK(without.remarks[0].find("a.obj', line 1: the material file 'none.mtl' is not there") != std::string::npos);
    CHECK(without.mesh.polygons.size() == 1);

    files.write("b.mtl", "newmtl stone\nKd 1 1 1\n");
    const Model other =
        readObjModel(files.write("b.obj", "mtllib b.mtl\n" + square + "usemtl wood\nf 1 2 3\nusemtl wood\nf 1 3 4\n"));
    REQUIRE(other.remarks.size() == 1);
    CHECK(other.remarks[0].find("b.obj', line 10: the material 'wood' is in no material file") != std::string::npos);
    CHECK(other.mesh.polygons.size() == 2);
}

TEST_CASE("corners that are not finite are left out and named, and the rest of their face is drawn")
{
    const Files files;
    const Model model =
        readObjModel(files.write("a.obj", square + "v nan 5 0\nv 1 -inf 0\nf 1 2 3 5 4\nf 5 6 1\nf 1 2 3\n"));
    CHECK(model.mesh.polygons.size() == 3);
    for (const Vector& position : model.mesh.positions) CHECK(length(position) == doctest::Approx(1));
    REQUIRE(model.remarks.size() == 2);
    CHECK(model.remarks[0].find("line 12: a face has corners that are not finite and is left out")
          != std::string::npos);
    CHECK(model.remarks[1].find("line 11: corners of a face are not finite and are left out") != std::string::npos);
}

TEST_CASE("a normal that is not finite is as good as none")
{
    const Files files;
    const Model model = readObjModel(files.write("a.obj", square + "vn 0 nan 1\nf 1//1 2//1 3//1\n"));
    CHECK(model.remarks.empty());
    for (const Vector& normal : model.mesh.normals) CHECK(normal.z == doctest::Approx(1));
}

TEST_CASE("faces that are turned away from their normals are remarked on once for all of them")
{
    const Files files;
    const Model model =
        readObjModel(files.write("a.obj", square + "vn 0 0 1\nf 1//1 2//1 3//1\nf 1//1 3//1 2//1\nf 1//1 4//1 3//1\n"));
    CHECK(model.mesh.polygons.size() == 3);
    REQUIRE(model.remarks.size() == 1);
    CHECK(
        model.remarks[0].find("line 11: a face is turned away from its normals and is seen from behind alone (and so 1 "
                              "more)")
        != std::string::npos);
}

TEST_CASE("vertices with colours are drawn in them, in every material that is opaque")
{
    const Files files;
    files.write("a.mtl", "newmtl wax\nKd 1 1 1\nnewmtl glass\nd 0.5\n");
    const Model model =
        readObjModel(files.write("a.obj", "mtllib a.mtl\nv 0 0 0 1 0 0\nv 2 0 0 0 0.2 0\nv 0 2 0 0 0 1\n"
                                          "usemtl wax\nf 1 2 3\nusemtl glass\nf 1 2 3\n"));
    REQUIRE(model.mesh.colours.size() == 3);
    CHECK(model.mesh.colours[0].red == 255);
    CHECK(model.mesh.colours[0].green == 0);
    CHECK(model.mesh.colours[1].green == 51);
    CHECK(model.mesh.colours[2].blue == 255);
    CHECK(model.materials[0].vertexColours);
    CHECK(!model.materials[1].vertexColours);
    REQUIRE(model.remarks.size() == 1);
    CHECK(model.remarks[0].find("not drawn in the material 'glass'") != std::string::npos);
    CHECK(readObjModel(files.write("b.obj", square + "f 1 2 3\n")).mesh.colours.empty());
}

TEST_CASE("how far a model is read and built is told, from none of it to nearly all")
{
    std::string text = square;
    for (int i = 0; i < 20000; ++i) text += "f 1 2 3\n";
    const Files files;
    std::map<std::string, std::vector<double>> told;
    readObjModel(files.write("a.obj", text), [&](const char* task, double part) { told[task].push_back(part); });
    REQUIRE(told.size() == 2);
    for (const auto& [task, parts] : told) {
        CHECK(parts.size() > 2);
        CHECK(parts.front() == 0);
        CHECK(parts.back() < 1);
        CHECK(std::is_sorted(parts.begin(), parts.end()));
    }
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
