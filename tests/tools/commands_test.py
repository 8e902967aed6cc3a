"""./demo, ./check, ./bench and tools/setup on a machine that is made up: what they answer before they do anything, and
what they do when something is missing."""
import json
import shutil
import unittest

from tools_under_test import TOP, CommandTest

# What CMake leaves behind when a build and its one check have passed; the preset is the third argument.
PASSING_CMAKE = r"""
folder=build/$3/Testing/Temporary
mkdir -p "$folder"
printf '1/1 Testing: check_a\n1/1 Test: check_a\nCommand: "a"\nTest Passed.\n' >"$folder/LastTest.log"
"""
ALL_INSTALLED = r"""
shift 3
for package; do printf 'installed:%s ' "$package"; done
"""


class Answers(CommandTest):
    """What can be answered is answered before anything is built, installed or fetched."""

    def assert_misused(self, run, *sentences):
        self.assertEqual(run.returncode, 2, run.stdout + run.stderr)
        self.assertEqual(run.stdout, "")
        self.assertEqual(len(run.stderr.splitlines()), 1, run.stderr)
        for sentence in sentences:
            self.assertIn(sentence, run.stderr)
        self.assert_touched_nothing()

    def test_help_is_printed_and_nothing_is_done(self):
        for program in ("demo", "check", "bench"):
            for option in ("--help", "-h"):
                with self.subTest(f"{program} {option}"):
                    run = self.command(program, option)
                    self.assert_passes(run)
                    self.assertTrue(run.stdout.startswith(f"usage: ./{program}"), run.stdout)
                    self.assertEqual(run.stderr, "")
                    self.assert_touched_nothing()

    def test_setup_has_help_that_names_its_groups(self):
        run = self.command("tools/setup", "--help")
        self.assert_passes(run)
        for group in ("build", "demo", "check", "win32"):
            self.assertRegex(run.stdout, rf"(?m)^  {group} ")
        self.assert_touched_nothing()

    def test_unknown_options_are_named(self):
        self.assert_misused(self.command("demo", "--frobnicate"), "there is no option '--frobnicate'")
        self.assert_misused(self.command("check", "--frobnicate"), "there is no option '--frobnicate'")

    def test_bench_names_a_command_that_it_does_not_have(self):
        self.assert_misused(self.command("bench", "frame"), "there is no command 'frame'")

    def test_demo_names_a_model_that_is_missing_or_no_file(self):
        self.assert_misused(self.command("demo", "missing.obj"), "there is no file 'missing.obj'")
        self.assert_misused(self.command("demo", ""), "there is no file ''")
        self.assert_misused(self.command("demo", str(self.folder)), "is not a file")
        self.assert_misused(self.command("demo", "window", "missing.obj"), "there is no file 'missing.obj'")

    def test_demo_takes_one_model(self):
        self.write("a.obj", "")
        self.write("b.obj", "")
        self.assert_misused(self.command("demo", "a.obj", "b.obj"), "'b.obj' is the second")

    def test_check_names_the_builds_that_exist(self):
        presets = json.loads((TOP / "CMakePresets.json").read_text())["workflowPresets"]
        names = [preset["name"] for preset in presets]
        self.assertIn("linux-i386", names)
        self.assert_misused(self.command("check", "linux-i387"), "'linux-i387'", *names)
        self.assert_misused(self.command("check", "--without", "linux-i387"), "'linux-i387'", *names)

    def test_check_wants_a_build_to_leave_out_and_one_to_run(self):
        self.assert_misused(self.command("check", "--without"), "--without needs the name of a build")
        self.assert_misused(self.command("check", "win32", "--without", "win32"), "no build is left to run")

    def test_setup_names_its_groups(self):
        self.assert_misused(self.command("tools/setup", "wrong"), "'wrong'", "build", "demo", "check")


USUAL_BUILDS = ["linux-i386", "linux-i386-sanitized", "linux-x86_64", "linux-x86_64-sanitized", "linux-aarch64",
                "win32", "win64", "wasm32", "fuzz"]


class Check(CommandTest):
    def setUp(self):
        super().setUp()
        self.stand_in("dpkg-query", ALL_INSTALLED)
        self.stand_in("cmake", PASSING_CMAKE)
        for wine in ("wine32", "wine64"):
            self.write(f"tree/cache/{wine}/ready", "")
        for lock in ("package-lock.json", "node_modules/installed-lock.json", "node_modules/playwright-core/index.js"):
            self.write(f"tree/page/{lock}", "")

    def workflows(self):
        return [call.split()[-1] for call in self.calls() if call.startswith("cmake --workflow --preset ")]

    def test_the_named_builds_run_and_each_has_a_line_before_the_sum(self):
        run = self.command("check", "fuzz", "linux-i386")
        self.assert_passes(run)
        self.assertEqual(self.workflows(), ["fuzz", "linux-i386"])
        *_, fuzz, linux, last = run.stdout.splitlines()
        self.assertRegex(fuzz, r"^fuzz +1 passed +0 failed +\d+ s$")
        self.assertRegex(linux, r"^linux-i386 +1 passed +0 failed +\d+ s$")
        self.assertEqual(last, "2 passed, 0 failed")

    def test_without_names_it_runs_the_usual_builds_but_those_left_out(self):
        self.assert_passes(self.command("check", "--without", "win32", "--without", "fuzz"))
        self.assertEqual(self.workflows(), [build for build in USUAL_BUILDS if build not in ("win32", "fuzz")])

    def test_nothing_is_installed_when_everything_is_there(self):
        self.command("check")
        self.assertEqual([call for call in self.calls() if call.startswith(("apt-get", "sudo"))], [])
        self.assertEqual(self.workflows(), USUAL_BUILDS)

    def test_a_build_whose_tools_cannot_be_had_counts_as_failed_and_the_others_run(self):
        self.take_away("apt-get", "i686-w64-mingw32-g++-posix")
        run = self.command("check", "win32", "fuzz")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(self.workflows(), ["fuzz"])
        self.assertIn("check: win32 counts as failed", run.stderr)
        self.assertIn("--without win32", run.stderr)
        self.assertEqual(run.stdout.splitlines()[-1], "1 passed, 1 failed")

    def test_a_build_whose_preparation_fails_counts_as_failed(self):
        (self.tree / "cache/wine32/ready").unlink()
        self.stand_in("wine", "exit 1")
        run = self.command("check", "win32", "fuzz")
        self.assertEqual(self.workflows(), ["fuzz"])
        self.assertIn("check: win32 counts as failed", run.stderr)
        self.assertEqual(run.stdout.splitlines()[-1], "1 passed, 1 failed")

    def test_what_the_page_is_tested_with_is_fetched_once_for_each_lock_file(self):
        self.write("tree/page/package-lock.json", "newer")
        self.assert_passes(self.command("check", "wasm32"))
        self.assert_passes(self.command("check", "wasm32"))
        self.assertEqual(len([call for call in self.calls() if call.startswith("npm ci ")]), 1)

    def test_a_workflow_that_breaks_off_counts_as_failed(self):
        self.stand_in("cmake", PASSING_CMAKE + "exit 1\n")
        run = self.command("check", "fuzz")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout.splitlines()[-1], "1 passed, 1 failed")

    def test_results_of_an_earlier_run_do_not_count(self):
        self.assert_passes(self.command("check", "fuzz"))
        self.stand_in("cmake", "exit 1")
        run = self.command("check", "fuzz")
        self.assertEqual(run.stdout.splitlines()[-1], "0 passed, 1 failed")

    def test_without_python_nothing_passes(self):
        self.take_away("python3")
        run = self.command("check", "fuzz", "linux-i386")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stdout.splitlines()[-1], "0 passed, 2 failed")

    def test_the_list_of_builds_is_that_of_the_workflow_presets(self):
        presets = json.loads((TOP / "CMakePresets.json").read_text())["workflowPresets"]
        listed = self.command("check", "wrong").stderr.partition("the builds are: ")[2].split()
        self.assertEqual(sorted(listed), sorted(preset["name"] for preset in presets))


class Demo(CommandTest):
    def setUp(self):
        super().setUp()
        self.take_away("apt-get", "dpkg-query")
        self.write("tree/cache/models/OBJ/spider.obj", "")
        makes_a_host = "mkdir -p build/$3; ln -sf /bin/true build/$3/sample_host"
        self.stand_in("cmake", f"case $* in --build*--target*) {makes_a_host} ;; esac")

    def test_it_draws_through_the_32_bit_renderer_where_that_can_be_built(self):
        run = self.command("demo")
        self.assert_passes(run)
        self.assertIn("demo: building (linux-i386)", run.stdout)
        self.assertIn("demo: try next\n    ./demo window", run.stdout)

    def test_a_window_is_one_of_the_machines_own_renderer_and_nothing_is_drawn_into_files(self):
        self.write("a.obj", "")
        run = self.command("demo", "window", "a.obj")
        self.assert_passes(run)
        self.assertEqual(run.stdout, "demo: building (native)\n")
        self.assertIn("cmake --preset native", self.calls())

    def test_without_a_32_bit_compiler_it_draws_through_the_machines_own_renderer_and_says_so(self):
        self.stand_in("g++", 'case " $* " in *" -m32 "*) exit 1 ;; esac')
        run = self.command("demo")
        self.assert_passes(run)
        self.assertIn("32-bit programs cannot be built here", run.stdout)
        self.assertIn("demo: building (native)", run.stdout)
        self.assertIn("cmake --preset native", self.calls())

    def test_the_page_is_built_and_served_and_nothing_is_drawn(self):
        self.take_away("python3")
        self.stand_in("python3", "exit 0")
        run = self.command("demo", "page")
        self.assert_passes(run)
        self.assertIn("the page is build/wasm32/page/index.html", run.stdout)
        self.assertIn("cmake --build --preset wasm32 --target page", self.calls())
        self.assertNotIn("cmake --preset linux-i386", self.calls())

    def test_the_reference_is_built_by_the_machines_own_preset_and_nothing_is_drawn(self):
        run = self.command("demo", "reference")
        self.assert_passes(run)
        self.assertIn("the reference is build/native/reference/index.html", run.stdout)
        self.assertIn("cmake --build --preset native --target reference", self.calls())
        self.assertFalse((self.tree / "pictures").exists())

    def test_the_page_and_a_model_are_not_for_one_call(self):
        run = self.command("demo", "page", "a.obj")
        self.assertEqual(run.returncode, 2)
        self.assertIn("'a.obj' is the second", run.stderr)


class Setup(CommandTest):
    def test_what_is_there_by_package_is_left_alone_and_costs_one_question(self):
        self.stand_in("dpkg-query", ALL_INSTALLED)
        run = self.command("tools/setup", "check")
        self.assert_passes(run)
        self.assertEqual(run.stdout + run.stderr, "")
        self.assertEqual([call.split()[0] for call in self.calls()], ["dpkg-query"])

    def test_without_apt_get_tools_that_are_there_are_enough(self):
        self.take_away("apt-get", "dpkg-query")
        run = self.command("tools/setup", "build", "win32")
        self.assert_passes(run)
        self.assertEqual(run.stdout + run.stderr, "")

    def test_with_apt_get_tools_that_came_in_another_way_are_enough_too(self):
        self.assert_passes(self.command("tools/setup", "build"))
        self.assertEqual([call for call in self.calls() if call.startswith("apt-get")], [])

    def test_without_apt_get_one_sentence_says_what_is_missing(self):
        self.take_away("apt-get", "dpkg-query", "cmake")
        run = self.command("tools/setup", "build")
        self.assert_fails(run, "this machine lacks CMake;", "Debian's cmake")
        self.assertEqual(len(run.stderr.splitlines()), 1)

    def test_a_compiler_that_cannot_make_32_bit_programs_is_missing(self):
        self.take_away("apt-get", "dpkg-query")
        self.stand_in("g++", 'case " $* " in *" -m32 "*) exit 1 ;; esac')
        self.assert_fails(self.command("tools/setup", "build"), "(-m32)", "g++-multilib")

    def test_what_is_missing_is_installed_by_package(self):
        self.take_away("cmake")
        installs_cmake = f'ln -s /bin/true "{self.machine}/cmake"'
        self.stand_in("apt-get", f'case " $* " in *" install "*" cmake "*) {installs_cmake} ;; esac')
        self.stand_in("sudo", '"$@"')
        run = self.command("tools/setup", "build")
        self.assert_passes(run)
        self.assertIn("setup: installing cmake\n", run.stdout)
        (install,) = [call for call in self.calls() if call.startswith("apt-get") and " install " in call]
        self.assertNotIn("ninja", install)

    def test_one_package_that_does_not_exist_does_not_keep_the_others_away(self):
        self.take_away("cmake", "ninja")
        self.stand_in("apt-get", f'case " $* " in *" ninja-build "*) exit 100 ;;'
                                 f' *" cmake "*) ln -s /bin/true "{self.machine}/cmake" ;; esac')
        self.stand_in("sudo", '"$@"')
        run = self.command("tools/setup", "build")
        self.assert_fails(run, "these packages could not be installed: ninja-build")
        self.assertTrue((self.machine / "cmake").exists())

    def test_look_installs_nothing(self):
        self.take_away("cmake")
        self.assert_fails(self.command("tools/setup", "--look", "build"), "lacks CMake", "tools/setup build")
        self.assertEqual([call for call in self.calls() if call.startswith(("apt-get", "sudo"))], [])

    def test_configuring_stops_with_the_sentence_that_says_what_is_missing(self):
        script = self.tree / "cmake/needed_tools.cmake"
        configure = (shutil.which("cmake"), "-DKARDENO_NEEDED_TOOLS=win32", "-P", script)
        environment = {"PATH": str(self.machine)}
        self.take_away("apt-get", "dpkg-query")
        self.assert_passes(self.run_tool(*configure, env=environment))
        self.take_away("i686-w64-mingw32-g++-posix")
        self.assert_fails(self.run_tool(*configure, env=environment), "this machine lacks i686-w64-mingw32-g++-posix")

    def test_every_preset_that_builds_names_the_tools_that_it_needs(self):
        listed = json.loads((TOP / "CMakePresets.json").read_text())["configurePresets"]
        presets = {preset["name"]: preset for preset in listed}

        def needed(name):
            parents = presets[name].get("inherits", [])
            own = presets[name].get("cacheVariables", {}).get("KARDENO_NEEDED_TOOLS")
            inherited = [needed(parent) for parent in ([parents] if isinstance(parents, str) else parents)]
            return own or next(filter(None, inherited), None)

        for name, preset in presets.items():
            if not preset.get("hidden"):
                self.assertIsNotNone(needed(name), name)
                self.assertEqual(self.command("tools/setup", "--look", needed(name)).returncode, 0, name)


if __name__ == "__main__":
    unittest.main()
