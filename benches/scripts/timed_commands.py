"""The commands of ./bench that time something: frames, growth, routines and peers."""
import growth_scenes
import machine
import peer_tables
import routine_tables
from cells import cell_of, growth_cells, named_cells, neutral_cells, sample_cells
from figures import number, ratio, times
from turns import Program, Progress, in_turns, run_lines
from workplace import MODELS, Report, build_programs, drawable, fail, libraries_of, say_libraries, write_scenes

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
