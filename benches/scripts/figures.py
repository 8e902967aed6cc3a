"""Medians, ratios and tables: everything about measurements that is computed and not measured."""
import statistics


def median(values):
    return statistics.median(values)


def spread(values):
    """How far the largest and the smallest lie apart, as a part of the median; 0 for a single value."""
    middle = median(values)
    return (max(values) - min(values)) / middle if middle else 0.0


def ratio(value, reference):
    """value / reference, or None where there is no such number."""
    return value / reference if value is not None and reference else None


def number(value):
    """A number with about three digits that count, or a dash for None."""
    if value is None:
        return "-"
    for limit, digits in ((0.09995, 4), (0.9995, 3), (99.95, 2), (999.5, 1)):
        if abs(value) < limit:
            return f"{value:.{digits}f}"
    return f"{value:.0f}"


def times(value):
    """A ratio as text."""
    return "-" if value is None else f"{value:.2f}"


def whole(value):
    """A count with its digits in groups of three."""
    return "-" if value is None else f"{value:,}"


def change(now, before):
    """The change from one count to another as a percentage, or a dash where one of the two is missing."""
    if now is None or not before:
        return "-"
    if now == before:
        return "same"
    return f"{100.0 * (now - before) / before:+.2f} %"


def text_table(heads, rows):
    """Lines of columns: the first is aligned to the left, all others to the right."""
    cells = [heads, *rows]
    widths = [max(len(row[column]) for row in cells) for column in range(len(heads))]
    lines = ["  ".join([row[0].ljust(widths[0]), *(cell.rjust(width) for cell, width in zip(row[1:], widths[1:]))])
             for row in cells]
    lines.insert(1, "  ".join("-" * width for width in widths))
    return "\n".join(line.rstrip() for line in lines)


def markdown_table(heads, rows):
    """The same columns as a table of Markdown."""
    lines = ["| " + " | ".join(row) + " |" for row in [heads, *rows]]
    lines.insert(1, "|---" + "|--:" * (len(heads) - 1) + "|")
    return "\n".join(lines)
