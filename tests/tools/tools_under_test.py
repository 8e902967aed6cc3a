"""What the tests of the tools share: where the tools are, folders to fill, and programs that stand in for real ones."""
import os
import shutil
import stat
import subprocess
import tempfile
import unittest
from pathlib import Path

TOP = Path(__file__).resolve().parent.parent.parent
TOOLS = TOP / "tools"


class ToolTest(unittest.TestCase):
    """A test with an empty folder of its own, which goes with it."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="kardeno_tools_"))
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def run_tool(self, *command, **options):
        """Runs a tool by its name, or any program by its path, and gives what it printed and its exit code."""
        program, *arguments = map(str, command)
        if "/" not in program:
            program = str(TOOLS / program)
        return subprocess.run([program, *arguments], capture_output=True, text=True, timeout=120, **options)

    def assert_passes(self, run):
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)

    def assert_fails(self, run, *sentences):
        """Fails by the exit code 1, and says each of the sentences."""
        self.assertEqual(run.returncode, 1, run.stdout + run.stderr)
        for sentence in sentences:
            self.assertIn(sentence, run.stdout + run.stderr)


class CommandTest(ToolTest):
    """A test of the commands that people type, in a copy of what they need, on a machine made up of stand-ins.

    Whatever could build, install or fetch is a stand-in that only notes that it was called.
    """

    COMMANDS = ["demo", "check", "bench", "CMakePresets.json"]

    # Commands that the scripts may use anywhere.
    HARMLESS = """awk basename cat cmp cp date dirname echo env expr flock grep head id ln ls mkdir mktemp mv nproc
        printf python3 rm sed sh sort tail timeout touch tr wc""".split()
    STOOD_IN = ["apt-get", "dpkg-query", "dpkg-deb", "sudo", "cmake", "ninja", "wine", "wineserver", "g++", "gcc",
                "clang++-14", "clang-format-14", "doxygen", "ld.lld-14", "llvm-ar-14", "node", "npm",
                "chromium-headless-shell", "qemu-aarch64-static", "i686-w64-mingw32-g++-posix",
                "x86_64-w64-mingw32-g++-posix"]

    def setUp(self):
        super().setUp()
        self.tree = self.folder / "tree"
        self.machine = self.folder / "bin"
        self.calls_file = self.folder / "calls"
        self.machine.mkdir()
        self.tree.mkdir()
        for name in self.COMMANDS:
            shutil.copy2(TOP / name, self.tree / name)
        for folder in ("tools", "cmake"):
            shutil.copytree(TOP / folder, self.tree / folder)
        for name in self.HARMLESS:
            if found := shutil.which(name):
                (self.machine / name).symlink_to(found)
        for name in self.STOOD_IN:
            self.stand_in(name, "exit 0")

    def stand_in(self, name, script):
        """A program of the made-up machine; it notes its call before it does what the script says."""
        path = self.machine / name
        assert not path.is_symlink(), f"{name} is the real one: take it away first"
        path.write_text(f'#!/bin/sh\necho "{name} $*" >>"{self.calls_file}"\n{script}\n')
        path.chmod(path.stat().st_mode | stat.S_IXUSR)

    def take_away(self, *names):
        for name in names:
            (self.machine / name).unlink()

    def command(self, *arguments, cwd=None):
        program, *rest = arguments
        environment = {**os.environ, "PATH": str(self.machine)}
        return self.run_tool(self.tree / program, *rest, env=environment, cwd=cwd or self.folder)

    def calls(self):
        return self.calls_file.read_text().splitlines() if self.calls_file.exists() else []

    def assert_touched_nothing(self):
        self.assertEqual(self.calls(), [])
        made = {path.name for path in self.tree.iterdir()} - {*self.COMMANDS, "tools", "cmake"}
        self.assertEqual(made, set())
