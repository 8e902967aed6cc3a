"""What the commands of ./bench share: builds, libraries, scenes and the report."""
import json
import subprocess
import sys
from pathlib import Path

import machine
from cells import write_scene
from figures import markdown_table, text_table

TOP = machine.TOP
MESH_MODEL = TOP / "cache/mesh_model/bunny.obj"
MODELS = [TOP / f"cache/models/OBJ/{name}.obj" for name in ("spider", "WusonOBJ", "regr01")]


def fail(sentence):
    sys.exit(f"bench: {sentence}")


class Report:
    """Prints tables, and keeps what they show for --json."""

    def __init__(self, options, build):
        self.table_form = markdown_table if options.markdown else text_table
        self.file = options.json
        self.content = {"made_with": machine.description(build), "tables": []}
        width = max(map(len, self.content["made_with"]))
        for key, value in self.content["made_with"].items():
            print(f"{key + ':':<{width + 1}} {value}")

    def remark(self, text):
        print(text)

    def table(self, title, heads, rows, values):
        print(f"\n{title}\n\n{self.table_form(heads, rows)}", flush=True)
        self.content["tables"].append({"title": title, "values": values})
        if self.file:  # after each table, so that a run that is broken off leaves what it found
            Path(self.file).write_text(json.dumps(self.content, indent=1) + "\n")


def build_programs(preset, *targets, folder=None, settings=()):
    """Configures a build where needed, builds some of its targets and gives its folder."""
    folder = TOP / "build" / (folder or preset)
    log = TOP / "cache/bench.log"
    log.parent.mkdir(exist_ok=True)
    print(f"bench: building {', '.join(targets)} ({folder.name})", file=sys.stderr, flush=True)
    with log.open("w") as output:
        for step in (["cmake", "--preset", preset, "-B", str(folder), *settings],
                     ["cmake", "--build", str(folder), "--target", *targets]):
            if subprocess.run(step, cwd=TOP, stdout=output, stderr=subprocess.STDOUT).returncode != 0:
                output.flush()
                fail("this step failed: " + " ".join(step) + "\n" + "\n".join(log.read_text().splitlines()[-30:]))
    return folder


def libraries_of(options, build):
    """The libraries to be compared, by the names that the tables give them."""
    if not options.library:
        return {"this build": build / ("kardeno_soft.dll" if build.name.startswith("win") else "libkardeno_soft.so")}
    for path in options.library:
        if not Path(path).is_file():
            fail(f"there is no file '{path}'")
    names = [chr(ord("A") + i) for i in range(len(options.library))]
    return {name: Path(path).resolve() for name, path in zip(names, options.library)}


def say_libraries(report, options, libraries):
    if options.library:
        for name, path in libraries.items():
            report.remark(f"{name}: {path} ({machine.digest(path)})")
        report.content["libraries"] = {name: f"{path} ({machine.digest(path)})" for name, path in libraries.items()}


def is_current(scene):
    """Whether the file of a scene is younger than all that generates scenes."""
    scripts = Path(__file__).parent.glob("*_scenes.py")
    builder = Path(__file__).with_name("scene_builder.py")
    return scene.exists() and scene.stat().st_mtime >= max(path.stat().st_mtime for path in (builder, *scripts))


def write_scenes(cells):
    for cell in cells:
        if isinstance(cell.scene, Path) and cell.scene.suffix == ".bin" and not is_current(cell.scene):
            print(f"bench: making {cell.scene.name}", file=sys.stderr, flush=True)
            write_scene(cell.scene, MESH_MODEL)


def drawable(cells):
    """Leaves out the scene of a model that is not there."""
    if MESH_MODEL.exists() or not any(cell.name.startswith("mesh/") for cell in cells):
        return cells
    print("bench: no model, so the scene mesh is left out", file=sys.stderr)
    return [cell for cell in cells if not cell.name.startswith("mesh/")]
