"""Runs programs in turns.

A machine changes its pace from minute to minute, the more so when others use it. Therefore each round runs all programs
once, one after another, and a program's figure is the median over the rounds of the median of its frames.
"""
import json
import os
import subprocess
import sys
from pathlib import Path

from figures import median, spread
from machine import TOP


def relative(word):
    """Files below the top folder by their names there, which emulators understand too; the programs run in it."""
    return str(word.relative_to(TOP)) if isinstance(word, Path) and word.is_relative_to(TOP) else str(word)


class Program:
    def __init__(self, name, command, environment=None):
        self.name = name
        self.command = [relative(word) for word in command]
        self.environment = environment


class Result:
    """What the rounds of one program found."""

    def __init__(self, rounds):
        self.medians = [median(found["milliseconds"]) for found in rounds]
        self.median = median(self.medians)
        self.spread = spread(self.medians)
        self.pixels = rounds[0].get("pixels")

    def as_json(self):
        return {"milliseconds": self.median, "rounds": self.medians, "pixels": self.pixels}


def output_of(program, processor=None, seconds=600):
    """What a program prints; ends this one with a sentence when it fails."""
    def bind():
        if processor is not None:
            os.sched_setaffinity(0, {processor})

    try:
        done = subprocess.run(program.command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                              timeout=seconds, preexec_fn=bind, cwd=TOP,
                              env={**os.environ, **(program.environment or {})})
    except subprocess.TimeoutExpired:
        sys.exit(f"bench: {program.name} took longer than {seconds} seconds: {' '.join(program.command)}")
    if done.returncode != 0:
        sys.exit(f"bench: {program.name} failed: {done.stderr.strip()}\n  {' '.join(program.command)}")
    return done.stdout


def run(program, processor=None):
    """What a program says that prints one line of JSON."""
    return json.loads(output_of(program, processor))


def run_lines(program, processor=None):
    """What a program says that prints a line of JSON for each thing that it measured."""
    print(f"bench: {program.name} is running", file=sys.stderr, flush=True)
    return [json.loads(line) for line in output_of(program, processor).splitlines()]


class Progress:
    """A line on the terminal that is written again and again; without a terminal one line for each task."""

    def __init__(self, tasks):
        self.tasks, self.done = tasks, 0
        self.live = sys.stderr.isatty()

    def say(self, text):
        if self.live:
            print(f"\r\033[K[{self.done + 1}/{self.tasks}] {text}", end="", file=sys.stderr, flush=True)

    def finish(self, text):
        self.done += 1
        if not self.live:
            print(f"[{self.done}/{self.tasks}] {text}", file=sys.stderr, flush=True)
        elif self.done == self.tasks:
            print("\r\033[K", end="", file=sys.stderr, flush=True)


def in_turns(programs, rounds, progress, label, processor=None):
    """A Result for each program, by its name."""
    found = {program.name: [] for program in programs}
    for turn in range(rounds):
        for program in programs:
            progress.say(f"{label}, round {turn + 1} of {rounds}, {program.name}")
            found[program.name].append(run(program, processor))
    progress.finish(label)
    return {name: Result(results) for name, results in found.items()}
