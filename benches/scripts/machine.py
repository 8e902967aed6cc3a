"""What a measurement was made with: the machine, the compiler and its flags, the sources."""
import datetime
import hashlib
import json
import os
import platform
import shlex
import subprocess
from pathlib import Path

TOP = Path(__file__).resolve().parent.parent.parent


def said_by(*command):
    """The first line that a command prints, or nothing when it fails."""
    try:
        result = subprocess.run(command, cwd=TOP, capture_output=True, text=True)
    except OSError:
        return ""
    return result.stdout.split("\n")[0].strip() if result.returncode == 0 else ""


def processor():
    try:
        for line in Path("/proc/cpuinfo").read_text().splitlines():
            if line.startswith("model name"):
                return line.split(":", 1)[1].strip()
    except OSError:
        pass
    return platform.processor() or platform.machine()


def commit():
    """The commit that is checked out, and whether files differ from it."""
    name = said_by("git", "describe", "--always", "--abbrev=10")
    if not name:
        return "unknown"
    return name + (" with changes" if said_by("git", "status", "--porcelain", "--untracked-files=no") else "")


def is_flag_of_interest(argument):
    is_of_code = argument.startswith(("-m", "-O", "-f", "-std=", "-DNDEBUG"))
    return is_of_code and not argument.startswith(("-fdiagnostics", "-fdebug", "-ffile"))


def compiled_with(build):
    """The compiler of a build folder and the flags that matter to speed, as they stand for one file of the library."""
    try:
        entries = json.loads((build / "compile_commands.json").read_text())
    except OSError:
        return "unknown", "unknown"
    for entry in entries:
        if entry["file"].endswith("spanbuffer/scanline_resolver.cpp"):
            words = [word for word in shlex.split(entry["command"]) if Path(word).name != "ccache"]
            return said_by(words[0], "--version") or words[0], " ".join(filter(is_flag_of_interest, words))
    return "unknown", "unknown"


def description(build):
    """All of it, in the order in which it is printed."""
    compiler, flags = compiled_with(build)
    return {
        "date": datetime.date.today().isoformat(),
        "commit": commit(),
        "machine": f"{processor()}, {os.cpu_count()} processors, {platform.system()}",
        "load": "%.1f when the measurement began" % os.getloadavg()[0],
        "build": build.name,
        "compiler": compiler,
        "flags": flags,
    }


def digest(path):
    """Names the content of a file."""
    return hashlib.sha256(Path(path).read_bytes()).hexdigest()[:12]
