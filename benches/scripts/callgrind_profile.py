"""Reads what callgrind counted and adds it up by the files of the renderer.

Instructions count for the file in which they are written, also where they were inlined somewhere else. Those of
support/ and of the compiler's own headers count for the file of the function that they ended up in: they are the
arithmetic of that stage.
"""
import re
from collections import Counter
from pathlib import PurePosixPath

ROOMS = ("frame", "interface", "geometry", "spanbuffer", "raster", "host")
HOST_PROGRAM, ELSEWHERE = "host program", "C library"

NAME = re.compile(r"^(fl|fi|fe|cfi|cfl)=\((\d+)\)(?: (.*))?$")
COST = re.compile(r"^(?:[+-]?\d+|\*) (\d+)$")


def stage_of(file):
    """The room and the file of the renderer, such as raster/span_walk.h, or who else it was. None for support/, whose
    instructions belong to those who use them, and for files of the compiler."""
    parts = ("", *PurePosixPath(file).parts)[-3:]
    if len(parts) < 3 or parts[1] == "support":
        return None
    if parts[0] == "sample_host" or parts[1] in ("frames", "sample_host"):
        return HOST_PROGRAM
    return f"{parts[1]}/{parts[2]}" if parts[1] in ROOMS else None


def counts_of(text):
    """Instructions by stage."""
    names, counts = {}, Counter()
    own_file = current_file = ""
    is_cost_of_call = False
    for line in text.splitlines():
        if found := NAME.match(line):
            key, number, name = found.groups()
            if name is not None:
                names[number] = name
            if key == "fl":
                own_file = current_file = names[number]
            elif key in ("fi", "fe"):
                current_file = names[number]
        elif line.startswith("calls="):
            is_cost_of_call = True  # the next line is the cost of what was called, which has lines of its own
        elif found := COST.match(line):
            if not is_cost_of_call:
                stage = stage_of(current_file) or stage_of(own_file) or ELSEWHERE
                counts[stage] += int(found[1])
            is_cost_of_call = False
    return counts


def by_room(counts):
    """The same, added up by room."""
    rooms = Counter()
    for stage, count in counts.items():
        rooms[stage.split("/")[0]] += count
    return rooms


def share_table(counts_of_scene, least=0.005):
    """Heads and rows of a table of percentages: a row for each stage that has at least that share of some scene."""
    totals = {scene: sum(counts.values()) for scene, counts in counts_of_scene.items()}
    stages = sorted({stage for counts in counts_of_scene.values() for stage in counts},
                    key=lambda stage: (order_of(stage.split("/")[0]), stage))
    rows = []
    for stage in stages:
        shares = [counts_of_scene[scene][stage] / totals[scene] for scene in counts_of_scene]
        if max(shares) >= least:
            rows.append([stage, *(f"{100 * share:.1f}" for share in shares)])
    return ["stage", *counts_of_scene], rows


def order_of(room):
    """Rooms stand in the order in which a frame comes through them."""
    order = (HOST_PROGRAM, *ROOMS, ELSEWHERE)
    return order.index(room) if room in order else len(order)


def read_counts(text):
    """The tracked counts, by scene and room: lines of a scene, a room and a count. The rest of a line behind # is for
    people."""
    counts = {}
    for line in text.splitlines():
        words = line.split("#")[0].rsplit(maxsplit=1)
        if len(words) == 2:
            scene, room = words[0].split(maxsplit=1)
            counts.setdefault(scene, Counter())[room.strip()] = int(words[1].replace(",", ""))
    return counts


def written_counts(counts_of_scene, remarks):
    """The same as text, with remarks above."""
    lines = [f"# {remark}" for remark in remarks]
    for scene, counts in counts_of_scene.items():
        lines += [f"{scene:<16} {room:<13} {counts[room]:>14,}" for room in sorted(counts, key=order_of)]
    return "\n".join(lines) + "\n"
