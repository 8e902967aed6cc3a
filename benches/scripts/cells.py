"""The cells of the tables: which scenes are drawn, in which variants, and how many frames a run of each draws."""
from scene_builder import make_texture
import growth_scenes
import neutral_scenes

VARIANTS = ["tex", "tex8", "tex_lit", "gouraud", "flat"]
SEE_THROUGH_VARIANTS = ["tex", "tex_add", "tex_lit", "tex_lit_add", "gouraud", "flat"]
SAMPLE_SCENES = ["room", "robots", "particles"]

# Frames and passes of a run. Heavy frames are fewer, evenly spread over the same path.
LIGHT_RUN, HEAVY_RUNS = (36, 2), {"mesh": (12, 1), "many": (6, 1)}


class Cell:
    """A scene in a variant. `scene` is what frames_bench is given: a scene's file, its name, or a model's file."""

    def __init__(self, name, scene, variant=None, run=LIGHT_RUN):
        self.name, self.scene, self.variant, self.run = name, scene, variant, run

    def arguments(self, size):
        frames, passes = self.run
        arguments = [self.scene, "--size", size, "--frames", frames, "--passes", passes]
        if self.variant == "tex8":
            return arguments + ["--variant", "tex", "--map", "8"]
        return arguments + (["--variant", self.variant] if self.variant else [])


def variants_of(scene):
    return SEE_THROUGH_VARIANTS if scene == "alpha" else VARIANTS


def cell_of(folder, scene, variant):
    return Cell(f"{scene}/{variant}", folder / f"{scene}.bin", variant, HEAVY_RUNS.get(scene, LIGHT_RUN))


def neutral_cells(folder):
    return [cell_of(folder, scene, variant) for scene in neutral_scenes.SCENES
            for variant in variants_of(scene)]


def sample_cells(models):
    cells = [Cell(f"sample/{scene}", scene) for scene in SAMPLE_SCENES]
    return cells + [Cell(f"model/{model.stem}", model) for model in models if model.exists()]


# The frames whose instructions are counted: few, because counting is slow, and enough for every stage to show.
COUNTED = {"fill/tex": 2, "fill/tex_lit": 2, "room/tex_lit": 4, "room/flat": 4, "mesh/tex": 1, "many/flat": 1,
           "alpha/tex_add": 2, "alpha/tex_lit": 2, "sample/robots": 4}


def counted_cells(folder):
    return [Cell(cell.name, cell.scene, cell.variant, (COUNTED[cell.name], 1))
            for cell in neutral_cells(folder) + sample_cells([]) if cell.name in COUNTED]


def growth_run(family, size):
    """Frames and passes, so that no run takes longer than a few seconds and none only an instant."""
    if family not in growth_scenes.FAMILIES_OF_FACES:
        return (3, 4)
    return (3, 10) if size < 16000 else (3, 2) if size < 64000 else (1, 1)


def growth_cells(folder, family):
    """The cells of a growth family, each with its size."""
    return [(size, Cell(f"{family}_{size}", folder / f"{family}_{size}.bin", "flat", growth_run(family, size)))
            for size in growth_scenes.FAMILIES[family]]


def named_cells(cells, names):
    """Those cells that are named, by their whole name or by what stands before the stroke; all without names."""
    if not names:
        return cells
    return [cell for cell in cells if cell.name in names or cell.name.split("/")[0] in names]


def write_scene(path, model):
    """Generates the file of a scene. A run that is broken off leaves no half file."""
    family, _, size = path.stem.rpartition("_")
    scene = (growth_scenes.scene_of(family, int(size)) if family in growth_scenes.FAMILIES
             else neutral_scenes.SCENES[path.stem](model))
    path.parent.mkdir(parents=True, exist_ok=True)
    unfinished = path.with_suffix(".part")
    scene.write(unfinished, *make_texture())
    unfinished.rename(path)
