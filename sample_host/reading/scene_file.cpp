#include "sample_host/reading/scene_file.h"

#include "sample_host/reading/scene_materials.h"
#include "sample_host/reading/scene_meshes.h"
#include "sample_host/scenes/own_shapes.h"
#include "sample_host/scenes/particle_movements.h"

#include <algorithm>
#include <utility>

namespace sample_host {

namespace {

using Thing = SceneFile::Thing;

constexpr std::size_t deepestTree = 32;

std::string withoutFolderAndEnding(const std::string& name)
{
    const std::size_t slash = name.find_last_of("/\\");
    const std::string last = slash == name.npos ? name : name.substr(slash + 1);
    const std::size_t dot = last.find_last_of('.');
    return dot == last.npos || dot == 0 ? last : last.substr(0, dot);
}

class Reader {
public:
    Reader(const std::string& name, std::string_view text, const NamedFiles& files)
        : files_(files), json_(name, text), top_(json_.top())
    {
        result_.name = withoutFolderAndEnding(name);
    }

    SceneReading read()
    {
        if (!json_.isBroken()) readTop();
        if (json_.isBroken()) return {std::nullopt, json_.problem()};
        return {std::move(result_), ""};
    }

private:
    void readTop()
    {
        top_.mustBeObjectOf({"contents", "camera", "light", "materials", "meshes", "levels", "things", "objects"});
        result_.contents = top_.textOr("contents", "");
        if (top_.has("camera")) readCamera(top_.at("camera"));
        if (top_.has("light")) readLight(top_.at("light"));
        if (top_.has("materials")) readMaterials(top_.at("materials"));
        result_.meshes.emplace_back();
        if (top_.has("meshes")) readMeshes(top_.at("meshes"));
        if (top_.has("levels")) readLevels(top_.at("levels"));
        if (top_.has("things"))
            for (const auto& [name, entry] : top_.at("things").members()) {
                thingNames_.push_back(name);
                things_.push_back(entry);
            }
        for (const JsonEntry& entry : top_.at("objects").list()) readObject(entry);
    }

    void readCamera(const JsonEntry& entry)
    {
        entry.mustBeObjectOf(
            {"target", "distance", "height", "start turn", "turns per round", "sway", "zoom", "near", "far"});
        SceneFile::CameraPlace& camera = result_.camera;
        constexpr double largest = 1e6, least = 1e-3;
        const auto positive = [&](const char* key, double& value) {
            if (entry.has(key)) value = entry.at(key).number(least, largest);
        };
        camera.target = entry.vectorOr("target", camera.target);
        positive("distance", camera.distance);
        camera.height = entry.numberOr("height", camera.height);
        camera.startTurn = entry.numberOr("start turn", camera.startTurn);
        camera.turnsPerRound = entry.numberOr("turns per round", camera.turnsPerRound);
        camera.sway = entry.numberOr("sway", camera.sway);
        positive("zoom", camera.zoom);
        positive("near", camera.nearPlane);
        positive("far", camera.farPlane);
        if (camera.farPlane <= camera.nearPlane) entry.failHere("far lies before near; expected is a larger far");
    }

    void readLight(const JsonEntry& entry)
    {
        entry.mustBeObjectOf({"ambient", "lamps"});
        if (entry.has("ambient")) result_.light.ambient = entry.at("ambient").number(0, 1);
        if (!entry.has("lamps")) return;
        for (const JsonEntry& lampEntry : entry.at("lamps").list()) {
            lampEntry.mustBeObjectOf({"place", "reach", "strength"});
            Lamp lamp;
            lamp.place = lampEntry.at("place").vector();
            if (lampEntry.has("reach")) lamp.reach = lampEntry.at("reach").number(1e-3, 1e6);
            lamp.strength = lampEntry.vectorOr("strength", lamp.strength);
            result_.light.lamps.push_back(lamp);
        }
    }

    void readMaterials(const JsonEntry& entry)
    {
        for (const auto& [name, material] : entry.members()) {
            result_.materials.push_back(materialIn(material, name, files_));
            materialNames_.push_back(name);
        }
    }

    void readMeshes(const JsonEntry& entry)
    {
        for (const auto& [name, shapes] : entry.members()) {
            Mesh mesh;
            if (shapes.has("model"))
                mesh = modelIn(shapes);
            else
                for (const JsonEntry& shape : shapes.list()) addShape(mesh, shape, materialNames_);
            result_.meshes.push_back(std::move(mesh));
            meshNames_.push_back(name);
        }
    }

    // A model brings its materials, which nothing else can name.
    Mesh modelIn(const JsonEntry& entry)
    {
        entry.mustBeObjectOf({"model"});
        const std::string file = entry.at("model").text();
        if (json_.isBroken()) return {};
        ModelReading reading = files_.model(file);
        if (!reading.model) {
            entry.at("model").failHere(reading.problem);
            return {};
        }
        Model& model = *reading.model;
        const int first = int(result_.materials.size());
        for (Mesh::Polygon& polygon : model.mesh.polygons) polygon.material += first;
        for (MaterialRecipe& recipe : model.materials) {
            result_.materials.push_back(std::move(recipe));
            materialNames_.push_back("a material of " + file);
        }
        for (std::string& remark : model.remarks) result_.remarks.push_back(std::move(remark));
        return std::move(model.mesh);
    }

    std::size_t meshOf(const JsonEntry& entry) const
    {
        return entry.has("mesh") ? 1 + entry.at("mesh").oneOf(meshNames_, "mesh") : 0;
    }

    // Trees of geometry that stand nowhere in the scene.
    void readLevels(const JsonEntry& entry)
    {
        for (const auto& [name, tree] : entry.members()) {
            result_.levels.push_back(levelIn(tree, 0));
            levelNames_.push_back(name);
        }
    }

    Thing levelIn(const JsonEntry& entry, std::size_t depth) const
    {
        entry.mustBeObjectOf({"mesh", "children"});
        Thing level;
        if (depth == deepestTree) {
            entry.failHere("the tree is too deep; expected are at most 32 levels");
            return level;
        }
        level.mesh = meshOf(entry);
        if (entry.has("children"))
            for (const JsonEntry& child : entry.at("children").list())
                level.children.push_back(levelIn(child, depth + 1));
        return level;
    }

    void readObject(const JsonEntry& entry)
    {
        if (entry.has("fountain")) return addFountain(entry.at("fountain"));
        if (entry.has("fire")) return addFire(entry.at("fire"));
        if (entry.has("thing"))
            result_.objects.push_back(likeThing(entry));
        else
            result_.objects.push_back(thingIn(entry, {}, 0, 0));
    }

    // One of the things that the file describes, somewhere in the scene.
    Thing likeThing(const JsonEntry& entry) const
    {
        entry.mustBeObjectOf({"thing", "name", "place", "lead"});
        const std::size_t number = entry.at("thing").oneOf(thingNames_, "thing");
        if (json_.isBroken()) return {};
        const JsonEntry& described = things_[number];
        Thing thing = thingIn(described, entry.vectorOr("place", {}), entry.numberOr("lead", 0), 0);
        const std::string name = entry.textOr("name", "");
        if (!name.empty()) nameAll(thing, name);
        return thing;
    }

    static void nameAll(Thing& thing, const std::string& name)
    {
        thing.name = thing.name.empty() ? name : name + ", " + thing.name;
        for (Thing& child : thing.children) nameAll(child, name);
    }

    Thing thingIn(const JsonEntry& entry, const Vector& offset, double lead, std::size_t depth) const
    {
        entry.mustBeObjectOf({"name", "mesh", "place", "turn", "size", "turning", "swinging", "group", "part", "sprite",
                              "levels", "limits", "children"});
        Thing thing;
        if (depth == deepestTree) {
            entry.failHere("the tree is too deep; expected are at most 32 levels");
            return thing;
        }
        thing.name = entry.textOr("name", "");
        thing.mesh = meshOf(entry);
        thing.movement = movementIn(entry, offset, lead);
        thing.isGroup = entry.flagOr("group", false);
        thing.isPart = entry.flagOr("part", false);
        thing.isSprite = entry.flagOr("sprite", false);
        if (entry.has("levels")) readLevelsOf(thing, entry);
        if (entry.has("children"))
            for (const JsonEntry& child : entry.at("children").list())
                thing.children.push_back(thingIn(child, {}, lead, depth + 1));
        if (json_.isBroken()) return thing;
        // A level is drawn part by part beside the thing's own tree.
        for (const std::size_t level : thing.levels)
            if (!sameShape(thing, result_.levels[level]))
                entry.at("levels").failHere("the level '" + levelNames_[level]
                                            + "' is another tree; expected is one with as many children everywhere");
        return thing;
    }

    static bool sameShape(const Thing& a, const Thing& b)
    {
        return a.children.size() == b.children.size()
               && std::equal(a.children.begin(), a.children.end(), b.children.begin(), sameShape);
    }

    void readLevelsOf(Thing& thing, const JsonEntry& entry) const
    {
        for (const JsonEntry& level : entry.at("levels").list())
            thing.levels.push_back(level.oneOf(levelNames_, "level"));
        if (entry.has("limits"))
            for (const JsonEntry& limit : entry.at("limits").list()) thing.limits.push_back(limit.number());
        if (thing.levels.empty() || thing.limits.size() + 1 != thing.levels.size())
            entry.failHere("levels has " + std::to_string(thing.levels.size()) + " and limits has "
                           + std::to_string(thing.limits.size()) + "; expected is one limit less than levels");
        if (!std::is_sorted(thing.limits.begin(), thing.limits.end()))
            entry.at("limits").refuse("a list of distances that ascend");
    }

    static Placement turnIn(const JsonEntry& entry)
    {
        entry.mustBeObjectOf({"axis", "turns"});
        return turned(unit(entry.at("axis").vector()), entry.at("turns").number());
    }

    static Movement movementIn(const JsonEntry& entry, const Vector& offset, double lead)
    {
        Placement place = movedTo(offset + entry.vectorOr("place", {}));
        if (entry.has("turn")) place = place * turnIn(entry.at("turn"));
        if (entry.has("size")) {
            const double size = entry.at("size").number(1e-3, 1e3);
            place = place * Placement{{size, 0, 0}, {0, size, 0}, {0, 0, size}, {}};
        }
        if (entry.has("turning") && entry.has("swinging"))
            entry.failHere("a thing turns or swings; expected is one of the two");
        if (entry.has("turning")) {
            const JsonEntry turn = entry.at("turning");
            turn.mustBeObjectOf({"axis", "turns"});
            return turning(place, unit(turn.at("axis").vector()), turn.at("turns").number());
        }
        if (!entry.has("swinging")) return standing(place);
        const JsonEntry swingEntry = entry.at("swinging");
        swingEntry.mustBeObjectOf({"axis", "middle", "width", "beats", "lead"});
        Swing swing;
        swing.axis = unit(swingEntry.vectorOr("axis", swing.axis));
        swing.middle = swingEntry.numberOr("middle", 0);
        swing.width = swingEntry.numberOr("width", 0);
        swing.beats = swingEntry.wholeOr("beats", 1, 100, 1);
        swing.lead = swingEntry.numberOr("lead", 0);
        swing.lead += lead;
        return swinging(place, swing);
    }

    // Sprites of one size, with the listed materials in turn.
    template <class MovementOf>
    void addParticles(const JsonEntry& entry, MovementOf movementOf)
    {
        const int count = entry.at("count").whole(1, 5000);
        const double size = entry.at("size").number(1e-3, 1e3);
        std::vector<std::size_t> meshes;
        for (const JsonEntry& material : entry.at("materials").list()) {
            meshes.push_back(result_.meshes.size());
            addSprite(result_.meshes.emplace_back(), int(material.oneOf(materialNames_, "material")), size);
        }
        if (meshes.empty()) return entry.at("materials").refuse("a list of materials");
        for (int i = 0; i < count; ++i) {
            Thing particle;
            particle.name = entry.textOr("name", "particle");
            particle.mesh = meshes[std::size_t(i) % meshes.size()];
            particle.movement = movementOf(i, count);
            particle.isSprite = true;
            result_.objects.push_back(std::move(particle));
        }
    }

    void addFountain(const JsonEntry& entry)
    {
        entry.mustBeObjectOf({"name", "count", "materials", "size", "spout", "water level"});
        const Fountain fountain{entry.at("spout").number(), entry.at("water level").number()};
        addParticles(entry, [=](int i, int count) { return thrown(fountain, i, count); });
    }

    void addFire(const JsonEntry& entry)
    {
        entry.mustBeObjectOf({"name", "count", "materials", "size", "mouth"});
        const Vector mouth = entry.at("mouth").vector();
        addParticles(entry, [=](int i, int count) { return burning(mouth, i, count); });
    }

    const NamedFiles& files_;
    JsonFile json_;
    JsonEntry top_;
    SceneFile result_;
    std::vector<std::string> materialNames_, levelNames_, thingNames_;
    std::vector<std::string> meshNames_; // without the empty one in front
    std::vector<JsonEntry> things_;
};

Object& addLevel(Scene& scene, const SceneFile& file, std::span<Material* const> palette, const Thing& level,
                 Object* parent)
{
    Object& object = scene.addLevelGeometry(file.meshes[level.mesh], palette, parent);
    for (const Thing& child : level.children) addLevel(scene, file, palette, child, &object);
    return object;
}

void addThing(Scene& scene, const SceneFile& file, std::span<Material* const> palette, std::span<Object* const> levels,
              const Thing& thing, Object* parent)
{
    Object& object = scene.addObject(file.meshes[thing.mesh], palette, thing.movement, parent);
    object.name = thing.name;
    if (thing.isGroup) object.becomeGroup();
    if (thing.isPart) object.becomePart();
    if (thing.isSprite) object.becomeSprite();
    std::vector<Object*> own;
    for (const std::size_t level : thing.levels) own.push_back(levels[level]);
    if (!own.empty()) object.drawLevels(own, thing.limits);
    for (const Thing& child : thing.children) addThing(scene, file, palette, levels, child, &object);
}

} // namespace

SceneReading readSceneText(const std::string& name, std::string_view text, const NamedFiles& files)
{
    return Reader(name, text, files).read();
}

std::unique_ptr<Scene> buildSceneFile(Engine& engine, const SceneFile& file, const MaterialMode& mode,
                                      const Progress& progress)
{
    auto scene = std::make_unique<Scene>(engine, mode);
    std::vector<Material*> palette;
    for (const MaterialRecipe& recipe : file.materials) {
        report(progress, "making materials", double(palette.size()) / double(file.materials.size()));
        palette.push_back(scene->addMaterial(recipe));
    }
    std::vector<Object*> levels;
    for (const Thing& level : file.levels) levels.push_back(&addLevel(*scene, file, palette, level, nullptr));
    for (const Thing& object : file.objects) addThing(*scene, file, palette, levels, object, nullptr);

    const int polygons = scene->polygonCount();
    scene->name = file.name;
    scene->contents =
        file.contents.empty() ? std::to_string(polygons) + (polygons == 1 ? " polygon" : " polygons") : file.contents;
    scene->camera.target = file.camera.target;
    scene->camera.distance = file.camera.distance;
    scene->camera.height = file.camera.height;
    scene->camera.startTurn = file.camera.startTurn;
    scene->camera.turnsPerRound = file.camera.turnsPerRound;
    scene->camera.sway = file.camera.sway;
    scene->camera.zoom = file.camera.zoom;
    scene->camera.nearZ = file.camera.nearPlane;
    scene->camera.farZ = file.camera.farPlane;
    scene->light() = file.light;
    return scene;
}

} // namespace sample_host
