"""What makes and checks packages and examples: archives that do not depend on times, and examples whose faults show."""
import calendar
import hashlib
import os
import tarfile
import unittest
import zipfile

from tools_under_test import ToolTest


class Pack(ToolTest):
    def fill(self, folder, names):
        for name in names:
            self.write(f"{folder}/{name}", f"this is {name}")
        (self.folder / folder / "link").symlink_to("b/c.txt")
        (self.folder / folder / "a.txt").chmod(0o700)

    def pack(self, folder, archive):
        (self.folder / archive).parent.mkdir(exist_ok=True)
        self.assert_passes(self.run_tool("pack", self.folder / folder, self.folder / archive))
        return (self.folder / archive).read_bytes()

    def test_times_and_the_order_of_creation_do_not_change_an_archive(self):
        self.fill("first", ["a.txt", "b/c.txt", "b.txt"])
        self.fill("second", ["b.txt", "b/c.txt", "a.txt"])
        for name in ("a.txt", "b", "b/c.txt"):
            os.utime(self.folder / "second" / name, (1234567890, 1234567890))
        for ending in ("tar.gz", "zip"):
            self.assertEqual(self.pack("first", f"1/x.{ending}"), self.pack("second", f"2/x.{ending}"))

    def test_the_time_of_the_files_may_be_given_and_is_otherwise_the_first_of_1980(self):
        self.fill("first", ["a.txt", "b/c.txt"])
        for given, time in (("1700000000", (2023, 11, 14, 22, 13, 20)), ("", (1980, 1, 1, 0, 0, 0)),
                            ("5", (1980, 1, 1, 0, 0, 0))):
            environment = dict(os.environ, SOURCE_DATE_EPOCH=given)
            for ending in ("tar.gz", "zip"):
                archive = self.folder / f"x.{ending}"
                self.assert_passes(self.run_tool("pack", self.folder / "first", archive, env=environment))
            with tarfile.open(self.folder / "x.tar.gz") as tar:
                self.assertEqual({entry.mtime for entry in tar}, {calendar.timegm(time)})
            with zipfile.ZipFile(self.folder / "x.zip") as packed:
                self.assertEqual({entry.date_time for entry in packed.infolist()}, {time})

    def test_contents_modes_and_links_are_kept_in_one_folder(self):
        self.fill("first", ["a.txt", "b/c.txt"])
        self.pack("first", "x-1.0.tar.gz")
        with tarfile.open(self.folder / "x-1.0.tar.gz") as tar:
            self.assertEqual(tar.getnames(), ["x-1.0/a.txt", "x-1.0/b", "x-1.0/b/c.txt", "x-1.0/link"])
            self.assertEqual(tar.extractfile("x-1.0/b/c.txt").read(), b"this is b/c.txt")
            self.assertEqual(tar.getmember("x-1.0/link").linkname, "b/c.txt")
            self.assertEqual([tar.getmember(f"x-1.0/{name}").mode for name in ("a.txt", "b/c.txt")], [0o755, 0o644])
            self.assertEqual({(entry.uid, entry.gid, entry.mtime) for entry in tar}, {(0, 0, 315532800)})
        self.pack("first", "x-1.0.zip")
        with zipfile.ZipFile(self.folder / "x-1.0.zip") as packed:
            self.assertEqual(packed.namelist(), ["x-1.0/a.txt", "x-1.0/b/c.txt", "x-1.0/link"])
            self.assertEqual(packed.read("x-1.0/b/c.txt"), b"this is b/c.txt")

    def test_the_folder_in_an_archive_may_be_named(self):
        self.fill("first", ["a.txt", "b/c.txt"])
        for ending in ("tar.gz", "zip"):
            archive = self.folder / f"x-debug.{ending}"
            self.assert_passes(self.run_tool("pack", self.folder / "first", archive, "x"))
        with tarfile.open(self.folder / "x-debug.tar.gz") as tar:
            self.assertEqual(tar.getnames(), ["x/a.txt", "x/b", "x/b/c.txt", "x/link"])
        with zipfile.ZipFile(self.folder / "x-debug.zip") as packed:
            self.assertEqual(packed.namelist(), ["x/a.txt", "x/b/c.txt", "x/link"])

    def test_other_archives_are_refused(self):
        self.fill("first", ["a.txt", "b/c.txt"])
        run = self.run_tool("pack", self.folder / "first", self.folder / "x.rar")
        self.assert_fails(run, "neither .tar.gz nor .zip")


class CheckExample(ToolTest):
    PICTURE = "P6 1 1 255\nabc"

    def check(self, script):
        program = self.write("program", f"#!/bin/sh\n{script}\n")
        program.chmod(0o755)
        digest = hashlib.sha256(self.PICTURE.encode()).hexdigest()
        expected = self.write("expected.txt", f"hello\npicture.ppm: {digest}\n")
        return self.run_tool("check_example", expected, self.folder / "run", program)

    def test_the_expected_words_and_picture_pass(self):
        self.assert_passes(self.check(f"echo hello; printf '{self.PICTURE}' >$1"))

    def test_other_words_and_another_picture_are_shown(self):
        self.assert_fails(self.check(f"echo hallo; printf '{self.PICTURE}' >$1"), "-hello", "+hallo")
        self.assert_fails(self.check("echo hello; echo other >$1"), "-picture.ppm: ", "+picture.ppm: ")

    def test_an_example_that_fails_or_draws_nothing_is_a_fault(self):
        self.assert_fails(self.check(f"echo hello; printf '{self.PICTURE}' >$1; exit 3"), "ended with 3")
        self.assert_fails(self.check("echo hello"), "drew no picture")


class RunChecked(ToolTest):
    SENTENCE = "echo 'kardeno_soft_checked: warning in A: object 0 at 0x1: wrong. Do it right. [normal-zero]' >&2"

    def check(self, script, *options):
        program = self.write("program", f"#!/bin/sh\n{script}\n")
        program.chmod(0o755)
        return self.run_tool("run_checked", *options, program)

    def test_a_program_of_which_nothing_is_said_passes(self):
        run = self.check("echo hello; echo something else >&2")
        self.assert_passes(run)
        self.assertEqual((run.stdout, run.stderr), ("hello\n", "something else\n"))

    def test_a_program_of_which_something_is_said_fails(self):
        run = self.check(self.SENTENCE)
        self.assert_fails(run, "[normal-zero]")
        self.assertIn("object 0", run.stderr)

    def test_what_is_expected_has_to_be_said(self):
        self.assert_passes(self.check(self.SENTENCE, "--but", "normal-zero"))
        self.assert_fails(self.check("true", "--but", "normal-zero"), "[normal-zero]")

    def test_a_program_that_fails_fails(self):
        self.assertEqual(self.check("exit 3").returncode, 3)

    def test_a_program_that_is_to_stop_has_to_end_at_the_first_sentence(self):
        stops = f'{self.SENTENCE}; test -z "$KARDENO_CHECKED_STOP" || exit 3'
        self.assert_passes(self.check(stops, "--stops"))
        self.assert_fails(self.check(f"{self.SENTENCE}; exit 0", "--stops"), "ended with 0")
        self.assert_fails(self.check(f"{self.SENTENCE}; {self.SENTENCE}; exit 3", "--stops"), "after 2 sentences")


if __name__ == "__main__":
    unittest.main()
