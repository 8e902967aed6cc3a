"""Measures the renderer; ./bench calls this after it has seen to the tools."""
import argparse
import json
import os
import subprocess
import sys
from pathlib import Path

import callgrind_profile
import growth_scenes
import machine
import peer_tables
import profile_picture
import routine_tables
from cells import cell_of, counted_cells, growth_cells, named_cells, neutral_cells, sample_cells, write_scene
from figures import change, markdown_table, number, ratio, text_table, times, whole
from turns import Program, Progress, in_turns, output_of, run_lines

TOP = machine.TOP
MESH_MODEL = TOP / "cache/mesh_model/bunny.obj"
MODELS = [TOP / "cache/models/OBJ/spider.obj"]
COUNTS = TOP / "benches/instruction_counts.txt"
PROFILE = TOP / "docs/pictures/profile.svg"
# What runs the programs of builds for other machines.
EMULATORS = {"wasm32": ["tools/run_wasm"], "win32": ["tools/wine", "32"], "win64": ["tools/wine", "64"]}
GROWTH_TITLES = {
    "grid_rows": "a grid over the whole screen, faces in row order",
    "grid_shuffled": "the same grid, faces in random order",
    "spread": "triangles of 6 x 3 pixels over the whole screen, at random depths",
    "onerow": "the same triangles, all on one row",
    "layers": "layers that cover the whole screen, in random order",
    "tall_near": "thin triangles as tall as the screen before 16,000 small ones",
    "tall_far": "thin triangles as tall as the screen behind 16,000 small ones",
}


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


def write_scenes(cells):
    for cell in cells:
        if isinstance(cell.scene, Path) and cell.scene.suffix == ".bin" and not cell.scene.exists():
            print(f"bench: making {cell.scene.name}", file=sys.stderr, flush=True)
            write_scene(cell.scene, MESH_MODEL)


def drawable(cells):
    """Leaves out the scene of a model that is not there."""
    if MESH_MODEL.exists() or not any(cell.name.startswith("mesh/") for cell in cells):
        return cells
    print("bench: no model, so the scene mesh is left out", file=sys.stderr)
    return [cell for cell in cells if not cell.name.startswith("mesh/")]


def compared(results, libraries):
    """The columns of a row that compares libraries: milliseconds, and each one's ratio to the first."""
    first, *others = [results[name] for name in libraries]
    columns = [number(results[name].median) for name in libraries]
    for other in others:
        columns.append(times(ratio(other.median, first.median)) + ("" if other.pixels == first.pixels else " (!)"))
    return columns


def heads_for(libraries):
    first, *others = libraries
    return [f"{name}, ms" for name in libraries] + [f"{other} / {first}" for other in others]


def run_in_turns(build, libraries, cell, size, options, progress):
    runner = EMULATORS.get(build.name, [])
    program = build / ("frames_bench.exe" if build.name.startswith("win") else "frames_bench")
    programs = [Program(name, [*runner, program, *cell.arguments(size), "--library", library])
                for name, library in libraries.items()]
    return in_turns(programs, options.rounds, progress, f"{cell.name} {size}", options.processor)


def warn_of_pixels(report, differing):
    if differing:
        report.remark("\n(!) marks other pixels than those of the first library: " + ", ".join(differing))


def frames(options):
    build = build_programs(options.build, "kardeno_soft", "frames_bench")
    libraries = libraries_of(options, build)
    every_cell = neutral_cells(build / "bench_scenes") + sample_cells(MODELS)
    cells = drawable(named_cells(every_cell, options.scene))
    if not cells:
        fail("no such scene; there are " + ", ".join(cell.name for cell in every_cell))
    if options.variant:
        cells = [cell for cell in cells if cell.variant in options.variant]
    write_scenes(cells)

    report = Report(options, build)
    say_libraries(report, options, libraries)
    sizes = options.size.split(",")
    progress = Progress(len(cells) * len(sizes))
    differing = []
    for size in sizes:
        rows, values = [], {}
        for cell in cells:
            results = run_in_turns(build, libraries, cell, size, options, progress)
            rows.append([cell.name, *compared(results, libraries),
                         f"{100 * max(result.spread for result in results.values()):.0f} %"])
            values[cell.name] = {name: result.as_json() for name, result in results.items()}
            if len({result.pixels for result in results.values()}) > 1:
                differing.append(cell.name)
        report.table(f"Frames of {size}, CPU time, median of {options.rounds} rounds",
                     ["scene", *heads_for(libraries), "rounds differ by"], rows, values)
    warn_of_pixels(report, differing)


def growth(options):
    families = options.family or list(growth_scenes.FAMILIES)
    for family in families:
        if family not in growth_scenes.FAMILIES:
            fail(f"there is no family '{family}'; there are " + ", ".join(growth_scenes.FAMILIES))
    build = build_programs(options.build, "kardeno_soft", "frames_bench")
    libraries = libraries_of(options, build)
    scenes = {family: growth_cells(build / "bench_scenes", family) for family in families}
    if options.largest:
        scenes = {family: [(size, cell) for size, cell in cells if size <= options.largest]
                  for family, cells in scenes.items()}
    write_scenes([cell for cells in scenes.values() for _, cell in cells])

    report = Report(options, build)
    say_libraries(report, options, libraries)
    progress = Progress(sum(map(len, scenes.values())))
    differing = []
    for family, cells in scenes.items():
        rows, values = [], {}
        in_faces = family in growth_scenes.FAMILIES_OF_FACES
        for size, cell in cells:
            results = run_in_turns(build, libraries, cell, "640x480", options, progress)
            per_face = [number(result.median * 1e6 / size) for result in results.values()] if in_faces else []
            rows.append([f"{size:,}", *compared(results, libraries), *per_face])
            values[cell.name] = {name: result.as_json() for name, result in results.items()}
            if len({result.pixels for result in results.values()}) > 1:
                differing.append(cell.name)
        report.table(f"Growth, {GROWTH_TITLES[family]} (flat, 640x480)",
                     ["faces" if in_faces else "number", *heads_for(libraries),
                      *(f"{name}, ns a face" for name in libraries if in_faces)], rows, values)
    warn_of_pixels(report, differing)


def routines(options):
    build = build_programs(options.build, "routines_bench")
    report = Report(options, build)
    command = Program("routines_bench", [build / "routines_bench", "--rounds", options.rounds, *options.routine])
    found = run_lines(command, options.processor)
    if not found:
        fail("there are no such routines")
    report.table("Inner routines, ns a pixel on spans of so many pixels; CPU time, median of the rounds",
                 routine_tables.HEADS, routine_tables.table_of(found, options.both_formats), found)
    if any(not one["same pixels"] for one in found):
        report.remark("\n(!) marks packed routines that draw other pixels than the plain ones.")


def counted(build, library, cell, folder):
    """What callgrind counts in the timed frames of a cell, by stage."""
    output = folder / "callgrind.out"
    command = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={output}", "--toggle-collect=drawTimedFrame",
               build / "frames_bench", *cell.arguments("640x480"), "--library", library]
    output_of(Program(f"callgrind of {cell.name}", command), seconds=1800)
    counts = callgrind_profile.counts_of(output.read_text())
    output.unlink()
    return counts


def instructions(options):
    # The same instructions as in the release build, with the names of files and functions beside them.
    build = build_programs(options.build, "kardeno_soft", "frames_bench", folder=f"{options.build}-counted",
                           settings=["-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG -g", "-DKARDENO_TESTS=OFF"])
    libraries = libraries_of(options, build)
    scenes = TOP / "build" / options.build / "bench_scenes"
    cells = drawable(named_cells(counted_cells(scenes), options.scene))
    write_scenes(cells)

    report = Report(options, build)
    say_libraries(report, options, libraries)
    progress = Progress(len(cells) * len(libraries))
    found = {name: {} for name in libraries}
    for name, library in libraries.items():
        for cell in cells:
            progress.say(f"{cell.name}, {name}")
            found[name][cell.name] = counted(build, library, cell, build)
            progress.finish(cell.name)

    rooms = {name: {scene: callgrind_profile.by_room(counts) for scene, counts in scenes_of.items()}
             for name, scenes_of in found.items()}
    if len(libraries) > 1:
        show_counts(report, *list(rooms.values())[1::-1], *list(rooms)[1::-1])
    else:
        tracked = callgrind_profile.read_counts(COUNTS.read_text()) if COUNTS.exists() else {}
        show_counts(report, rooms["this build"], tracked, "now", "tracked")
    for name, counts in found.items():
        heads, rows = callgrind_profile.share_table(counts)
        report.table(f"Percent of the instructions of a frame, {name}", heads, rows, counts)
    if options.update:
        update_counts(rooms["this build"], report)


def show_counts(report, counts, reference, name, reference_name):
    rows = []
    for scene, of_scene in counts.items():
        before = reference.get(scene, {})
        rows.append([scene, "all", whole(sum(of_scene.values())), whole(sum(before.values()) or None),
                     change(sum(of_scene.values()), sum(before.values()))])
        for room in sorted({*of_scene, *before}, key=callgrind_profile.order_of):
            rows.append(["", room, whole(of_scene.get(room)), whole(before.get(room)),
                         change(of_scene.get(room), before.get(room))])
    report.table("Instructions of the counted frames", ["scene", "stage", name, reference_name, "change"], rows,
                 {name: counts, reference_name: reference})


def update_counts(rooms, report):
    """Scenes that were not counted now keep their tracked counts."""
    tracked = callgrind_profile.read_counts(COUNTS.read_text()) if COUNTS.exists() else {}
    made_with = report.content["made_with"]
    PROFILE.write_text(profile_picture.picture({**tracked, **rooms}))
    COUNTS.write_text(callgrind_profile.written_counts({**tracked, **rooms}, [
        "Instructions of fixed frames of 640x480, by scene and stage. `./bench instructions --update` writes this.",
        "No test looks at them: they change with every change of the renderer and with the compiler.",
        f"{made_with['compiler']}; {made_with['build']}"]))


def our_programs(build, library, scene, variant, size):
    """Ours on a scene, by what the table says about each. The variant tex is drawn with both kinds of maps where there
    are two."""
    kinds = {"16-bit map": "tex", "8-bit map": "tex8"} if variant == "tex" and scene != "alpha" else {variant: variant}
    cells = {kind: cell_of(build / "bench_scenes", scene, own) for kind, own in kinds.items()}
    return {kind: Program(f"ours, {kind}", [build / "frames_bench", *cell.arguments(size), "--library", library])
            for kind, cell in cells.items()}


def peers(options):
    build = build_programs(options.build, "kardeno_soft", "frames_bench")
    native = build_programs(options.peer_build, *sorted({peer.program for peer in peer_tables.PEERS}))
    library = options.library or build / "libkardeno_soft.so"
    cells = drawable(named_cells([cell for cell in neutral_cells(build / "bench_scenes") if cell.variant != "tex8"],
                                 options.scene))
    if not cells:
        fail("no such scene")
    write_scenes(cells)

    report = Report(options, build)
    report.remark(f"peers:    {machine.compiled_with(native)[1]}")
    sizes = options.size.split(",")
    progress = Progress(len(cells) * len(sizes))
    for size in sizes:
        rows, values, every_row = [], {}, []
        for cell in cells:
            ours = our_programs(build, library, *cell.name.split("/"), size)
            others = {peer.name: Program(peer.name, [native / peer.program, *cell.arguments(size), *peer.arguments],
                                         peer.environment) for peer in peer_tables.PEERS}
            results = in_turns([*ours.values(), *others.values()], options.rounds, progress, f"{cell.name} {size}",
                               options.processor)
            own = {kind: results[program.name].median for kind, program in ours.items()}
            other = {name: results[name].median for name in others}
            rows.append(peer_tables.row_of(cell.name, own, other, {peer.name: peer.bits for peer in peer_tables.PEERS}))
            every_row.append([cell.name, *map(number, [min(own.values()), *other.values()])])
            values[cell.name] = {name: result.as_json() for name, result in results.items()}
        report.table(f"Ours and the best peer, {size}, CPU time, median of {options.rounds} rounds", peer_tables.HEADS,
                     rows, values)
        report.table(f"All of them, {size}, ms", ["scene", "ours", *others], every_row, {})


def add_common_options(parser, rounds):
    parser.add_argument("--build", default="linux-i386", metavar="PRESET", help="the build (%(default)s)")
    parser.add_argument("--json", metavar="FILE", help="also write all figures to this file")
    parser.add_argument("--markdown", action="store_true", help="tables of Markdown")
    if rounds is None:  # what is counted is the same in every round
        return
    parser.add_argument("--rounds", type=int, default=rounds, metavar="N", help="(%(default)s)")
    parser.add_argument("--processor", type=int, metavar="N", default=max(os.sched_getaffinity(0)),
                        help="the processor to run on (%(default)s)")


def add_library_option(parser):
    parser.add_argument("--library", action="append", metavar="FILE",
                        help="a library of the same width instead of this build's; several are compared with the first")


def main():
    parser = argparse.ArgumentParser(prog="./bench", description="Measures the renderer. Judges nothing.")
    commands = parser.add_subparsers(dest="command", required=True)

    command = commands.add_parser("frames", help="whole frames of scenes")
    command.add_argument("scene", nargs="*", help="a scene (room) or a scene in a variant (room/flat); all without one")
    command.add_argument("--size", default="640x480", help="sizes with commas between them (%(default)s)")
    command.add_argument("--variant", action="append", help="only this variant (tex, tex8, tex_lit, gouraud, flat)")
    add_common_options(command, rounds=5)
    add_library_option(command)
    command.set_defaults(run=frames)

    command = commands.add_parser("growth", help="the same work in growing amounts")
    command.add_argument("family", nargs="*", help=", ".join(growth_scenes.FAMILIES) + "; all without one")
    command.add_argument("--largest", type=int, metavar="N", help="leave larger amounts out")
    add_common_options(command, rounds=3)
    add_library_option(command)
    command.set_defaults(run=growth)

    command = commands.add_parser("routines", help="the inner routines of the fillers, each alone")
    command.add_argument("routine", nargs="*", help="how its name begins; all without one")
    command.add_argument("--both-formats", action="store_true", help="those for 5-5-5 too")
    add_common_options(command, rounds=9)
    command.set_defaults(run=routines)

    command = commands.add_parser("instructions", help="instructions of fixed frames, by stage")
    command.add_argument("scene", nargs="*", help="a scene, or a scene in a variant; all without one")
    command.add_argument("--update", action="store_true",
                         help=f"write the counts to {COUNTS.relative_to(TOP)} and draw {PROFILE.relative_to(TOP)}")
    add_common_options(command, rounds=None)
    add_library_option(command)
    command.set_defaults(run=instructions)

    command = commands.add_parser("peers", help="other renderers on the same scenes")
    command.add_argument("scene", nargs="*", help="a scene, or a scene in a variant; all without one")
    command.add_argument("--size", default="640x480", help="sizes with commas between them (%(default)s)")
    command.add_argument("--peer-build", default="linux-x86_64", metavar="PRESET", help="theirs (%(default)s)")
    command.add_argument("--library", metavar="FILE", help="a library instead of this build's")
    add_common_options(command, rounds=3)
    command.set_defaults(run=peers)

    options = parser.parse_args()
    options.run(options)


if __name__ == "__main__":
    main()
