"""Draws where the instructions of a frame go: a bar for each scene, a part of it for each room."""
from callgrind_profile import order_of

COLOURS = {"host program": "#9e9e9e", "frame": "#8c6d31", "interface": "#5254a3", "geometry": "#1f77b4",
           "spanbuffer": "#d62728", "raster": "#2ca02c", "host": "#bcbd22", "C library": "#c7c7c7"}
LEFT, WIDTH, BAR, STEP, TOP = 110, 640, 20, 30, 40
LEAST_SHARE = 0.002  # smaller parts would not be seen
LEAST_SHARE_WITH_FIGURE = 0.045


def parts_of(counts):
    """The rooms of a scene with their shares, in the order in which a frame comes through them."""
    total = sum(counts.values())
    shares = [(room, counts[room] / total) for room in sorted(counts, key=order_of)]
    return [(room, share) for room, share in shares if share >= LEAST_SHARE]


def text(x, y, content, anchor="start", colour="#333"):
    return f'<text x="{x:.1f}" y="{y:.1f}" text-anchor="{anchor}" fill="{colour}">{content}</text>'


def rectangle(x, y, width, height, colour, title):
    return (f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" height="{height}" fill="{colour}">'
            f"<title>{title}</title></rect>")


def picture(counts_of_scene):
    """The picture as an SVG file's text."""
    seen = sorted({room for counts in counts_of_scene.values() for room, _ in parts_of(counts)}, key=order_of)
    lines, x = [], float(LEFT)
    for room in seen:
        lines += [rectangle(x, 12, 12, 12, COLOURS[room], room), text(x + 17, 22, room)]
        x += 30 + 6.6 * len(room)
    for i, (scene, counts) in enumerate(counts_of_scene.items()):
        y, x = TOP + STEP * i, float(LEFT)
        lines.append(text(LEFT - 8, y + 14, scene, "end"))
        for room, share in parts_of(counts):
            lines.append(rectangle(x, y, WIDTH * share, BAR, COLOURS[room], f"{room}: {100 * share:.1f} %"))
            if share >= LEAST_SHARE_WITH_FIGURE:
                lines.append(text(x + WIDTH * share / 2, y + 14, f"{100 * share:.0f}", "middle", "#fff"))
            x += WIDTH * share
    height = TOP + STEP * len(counts_of_scene)
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {LEFT + WIDTH + 20} {height}" '
        'font-family="sans-serif" font-size="12">',
        '<rect width="100%" height="100%" fill="#fff"/>', *lines, "</svg>"]) + "\n"
