"""The command of ./bench that counts: instructions."""
import callgrind_profile
import profile_picture
from cells import COUNTED, counted_cells, named_cells
from figures import change, whole
from turns import Program, Progress, output_of
from workplace import TOP, Report, build_programs, drawable, fail, libraries_of, say_libraries, write_scenes

COUNTS = TOP / "benches/instruction_counts.txt"
PROFILE = TOP / "docs/pictures/profile.svg"


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
    if options.update and options.library:
        fail("--update is for the counts of this build, not of a library")
    # The same instructions as in the release build, with the names of files and functions beside them.
    build = build_programs(options.build, "kardeno_soft", "frames_bench", folder=f"{options.build}-counted",
                           settings=["-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG -g", "-DKARDENO_SYMBOLS_APART=OFF",
                                     "-DKARDENO_TESTS=OFF"])
    libraries = libraries_of(options, build)
    scenes = TOP / "build" / options.build / "bench_scenes"
    cells = drawable(named_cells(counted_cells(scenes), options.scene))
    if not cells:
        fail("no such scene; there are " + ", ".join(COUNTED))
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
    first, *others = rooms
    for other in others:
        show_counts(report, rooms[other], rooms[first], other, first)
    if not others:
        show_counts(report, rooms[first], tracked_counts(), "now", "tracked")
    for name, counts in found.items():
        heads, rows = callgrind_profile.share_table(counts)
        report.table(f"Percent of the instructions of a frame, {name}", heads, rows, counts)
    if options.update:
        update_counts(rooms[first], report)


def tracked_counts():
    return callgrind_profile.read_counts(COUNTS.read_text()) if COUNTS.exists() else {}


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
    counts = {**tracked_counts(), **rooms}
    made_with = report.content["made_with"]
    PROFILE.write_text(profile_picture.picture(counts))
    COUNTS.write_text(callgrind_profile.written_counts(counts, [
        "Instructions of fixed frames of 640x480, by scene and stage. `./bench instructions --update` writes this.",
        "No test looks at them: they change with every change of the renderer and with the compiler.",
        f"{made_with['compiler']}; {made_with['build']}"]))
