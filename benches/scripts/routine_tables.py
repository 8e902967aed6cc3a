"""The tables of ./bench routines, made of the lines that routines_bench prints."""
from figures import number, ratio, times

LENGTHS = (1, 2, 4, 8, 16, 64, 640)
HEADS = ["routine", "form", *(f"{length} px" for length in LENGTHS), "/ bare"]


def floor_of(forms):
    """The faster of the bare loops at each length; None where there is none."""
    bare = [form["times"] for form in forms if form["form"] == "bare"]
    return [min(found) or None for found in zip(*bare)] if bare else [None] * len(LENGTHS)


def name_of(found):
    parts = [found["routine"], found["map"], "" if found["format"] == "565" else "5-5-5"]
    return " ".join(part for part in parts if part) + ("" if found["same pixels"] else " (!)")


def rows_of(found):
    """Lines for the plain routine, for the packed one and for the bare loop, as far as there are such. The last column
    says how many times as long as the bare loop the form takes on the longest spans."""
    floor = floor_of(found["forms"])
    rows = [[form["form"], *form["times"]] for form in found["forms"] if form["form"] != "bare"]
    if any(floor):
        rows.append(["bare", *floor])
    cells = [["", form, *map(number, durations), times(ratio(durations[-1], floor[-1]))] for form, *durations in rows]
    cells[0][0] = name_of(found)
    return cells


def table_of(found, both_formats):
    """The rows of all routines; those for 5-5-5, which differ by masks only, where they are asked for."""
    return [row for one in found if both_formats or one["format"] == "565" for row in rows_of(one)]
