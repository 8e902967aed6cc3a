"""The other renderers of ./bench peers, and the table that sets ours beside the best of them."""
from dataclasses import dataclass, field

from figures import number, ratio, times


@dataclass(frozen=True)
class Peer:
    name: str
    program: str
    arguments: tuple = ()
    bits: int = 16  # of a pixel
    environment: dict = field(default_factory=dict)


PEERS = [
    Peer("Allegro 4 5-6-5 z-buffer", "allegro4_peer", ("--bits", "16", "--hidden", "zbuffer")),
    Peer("Allegro 4 5-6-5 sorted", "allegro4_peer", ("--bits", "16", "--hidden", "sorted")),
    Peer("Allegro 4 8-bit z-buffer", "allegro4_peer", ("--bits", "8", "--hidden", "zbuffer"), bits=8),
    Peer("Allegro 4 8-bit sorted", "allegro4_peer", ("--bits", "8", "--hidden", "sorted"), bits=8),
]

HEADS = ["scene", "ours, ms", "best peer", "its ms", "ours / it", "best peer of 16 bits or more", "its ms", "ours / it"]


def best_of(milliseconds):
    """The name and the time of the fastest; two times None when there is none."""
    return min(milliseconds.items(), key=lambda item: item[1]) if milliseconds else (None, None)


def row_of(scene, ours, peers, bits):
    """A line of the table. `ours` and `peers` are milliseconds by name, `bits` the width of each peer's pixels. Of ours
    the fastest counts, which may have read another kind of map."""
    own_name, own = best_of(ours)
    cells = [scene, number(own) + (f" ({own_name})" if len(ours) > 1 else "")]
    for of_interest in (peers, {name: time for name, time in peers.items() if bits[name] >= 16}):
        name, time = best_of(of_interest)
        cells += [name or "-", number(time), times(ratio(own, time))]
    return cells
