#include "sample_host/model_obj.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

using namespace sample_host;

namespace {

// A folder of its own for one test's files.
class Files {
public:
    Files() : folder_(std::filesystem::temp_directory_path() / "kardeno_model_obj_test")
    {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
    }
    ~Files() { std::filesystem::remove_all(folder_); }

    std::string write(const char* name, const std::string& content) const
    {
        std::ofstream(folder_ / name, std::ios::binary) << content;
        return (folder_ / name).string();
    }
    std::string name(const char* file) const { return (folder_ / file).string(); }

private:
    std::filesystem::path folder_;
};

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
    refused(square + "f 1 2 9\n", "does not exist");
    refused(square + "f 1/9 2/2 3/3\n", "does not exist");
    refused(square + "f 1//5 2//5 3//5\n", "does not exist");
    refused(square + "f -9 2 3\n", "");
    refused(square + "f 0 1 2\n", "");
    refused("v 0 0 0\nv 1e999 0 0\nv 0 1 0\nf 1 2 3\n", "not finite");
    refused("v 1 1 1\nv 1 1 1\nv 1 1 1\nf 1 2 3\n", "one place");
    CHECK(complaint(files.name("missing.obj")).find("missing.obj") != std::string::npos);
    CHECK(complaint(files.name(".")).find("cannot be used") != std::string::npos);
}

TEST_CASE("an image that is missing or broken is refused with a sentence that names it")
{
    const Files files;
    files.write("a.mtl", "newmtl wood\nmap_Kd .\\wood.png\n");
    const std::string model = files.write("a.obj", "mtllib a.mtl\nusemtl wood\n" + square + "f 1/1 2/2 3/3\n");
    CHECK(complaint(model).find("wood.png") != std::string::npos);
    files.write("wood.png", "\x89PNG\r\n\x1a\nand nothing more");
    CHECK(complaint(model).find("wood.png") != std::string::npos);
}
