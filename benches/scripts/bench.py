"""The command line of ./bench, which calls this after it has seen to the tools."""
import argparse
import os

import growth_scenes
from counted_command import COUNTS, PROFILE, instructions
from timed_commands import frames, growth, peers, routines
from workplace import TOP


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
