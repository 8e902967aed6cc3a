"""The checks of the sources and of objects, on trees and objects that are made up: each passes what is right, and fails
for every fault that it is there to find."""
import shutil
import subprocess
import unittest

from tools_under_test import TOP, ToolTest


class CheckIncludes(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("include/kardeno_soft/numbers.h", "#pragma once\n")
        self.write("include/kardeno_soft/records.h", '#include "numbers.h"\n')
        self.write("support/arithmetic.h", '#include "kardeno_soft/numbers.h"\n#include <cstddef>\n')
        self.write("raster/walk.cpp", '#include "raster/walk.h"\n#include "support/arithmetic.h"\n')
        self.write("raster/walk.h", "#pragma once\n")
        self.write("raster/walk_sse2.cpp", "#include <emmintrin.h>\n")

    def check(self):
        return self.run_tool("check_includes", self.folder)

    def assert_finds(self, name, text, sentence):
        self.write(name, text)
        self.assert_fails(self.check(), f"{name.removeprefix('include/')}:1: ", sentence)

    def test_includes_of_a_room_and_of_those_before_it_pass(self):
        self.assert_passes(self.check())

    def test_a_room_may_not_include_a_later_one(self):
        self.assert_finds("support/list.h", '#include "raster/walk.h"\n', "support may not include raster/walk.h")

    def test_an_installed_header_includes_only_what_is_beside_it(self):
        self.assert_finds("include/kardeno_soft/a.h", '#include "kardeno_soft/numbers.h"\n', "only headers beside it")

    def test_the_room_stands_before_the_name(self):
        self.assert_finds("raster/a.cpp", '#include "walk.h"\n', "write the room before the name")

    def test_the_library_does_not_include_what_surrounds_it(self):
        self.assert_finds("raster/a.cpp", '#include "tests/a.h"\n', "the library may not include")

    def test_intrinsics_belong_into_files_of_their_level(self):
        self.assert_finds("raster/a.cpp", "#include <immintrin.h>\n", "belongs into a file named")

    def test_an_empty_tree_is_no_success(self):
        shutil.rmtree(self.folder / "include")
        shutil.rmtree(self.folder / "support")
        shutil.rmtree(self.folder / "raster")
        self.assertEqual(self.check().returncode, 1)


class CheckObjects(ToolTest):
    SHARED = "inline int twice(int x) { return x + x; }\nint user(int x);\nint user(int x) { return (&twice)(x); }\n"

    def compiled(self, name, text, *options):
        source = self.write(f"{name}.cpp", text)
        subprocess.run(["g++", "-m32", "-O0", *options, "-c", source, "-o", f"{source}.o"], check=True)
        return f"{source}.o"

    def test_an_inline_routine_in_an_object_of_a_higher_level_is_found(self):
        bad = self.compiled("rows_avx2", self.SHARED, "-mavx2")
        self.assert_fails(self.run_tool("check_objects", "levels", bad), "shares twice(int) with other objects")

    def test_shared_data_in_an_object_of_a_higher_level_is_found(self):
        text = "inline int counter = 3;\nint user();\nint user() { static int n; return counter + n++; }\n"
        bad = self.compiled("rows_avx2", text, "-std=c++20", "-mavx2")
        self.assert_fails(self.run_tool("check_objects", "levels", bad), "shares counter with other objects")

    def test_weak_data_in_an_object_of_a_higher_level_is_found(self):
        bad = self.compiled("rows_avx2", "extern int weak;\n__attribute__((weak)) int weak = 3;\n", "-mavx2")
        self.assert_fails(self.run_tool("check_objects", "levels", bad), "shares weak with other objects")

    def test_a_static_variable_of_an_inline_routine_is_found(self):
        text = "inline int& count() { static int n; return n; }\nint user();\nint user() { return count(); }\n"
        bad = self.compiled("rows_avx2", text, "-mavx2")
        self.assert_fails(self.run_tool("check_objects", "levels", bad), "shares count()::n with other objects")

    def test_an_unnamed_namespace_and_calls_of_others_pass(self):
        text = "int other(int);\nnamespace {\n" + self.SHARED.replace("int user(int x);\n", "") + "}\n"
        text += "int all(int x);\nint all(int x) { return other(user(x)); }\n"
        good = self.compiled("rows_avx2", text, "-mavx2")
        self.assert_passes(self.run_tool("check_objects", "levels", good))

    def test_only_objects_of_a_higher_level_are_looked_at_and_none_is_no_fault(self):
        common = self.compiled("rows", self.SHARED)
        sse2 = self.compiled("rows_sse2", self.SHARED)
        run = self.run_tool("check_objects", "levels", common, sse2)
        self.assert_passes(run)
        self.assertIn("no object file is compiled for a higher instruction level", run.stdout)

    def test_a_constructor_that_runs_at_load_is_found(self):
        text = "int now();\nint start = now();\n"
        self.assert_fails(self.run_tool("check_objects", "initialisers", self.compiled("bad", text)), "_GLOBAL__sub_I")
        self.assert_passes(self.run_tool("check_objects", "initialisers", self.compiled("good", "int start = 3;\n")))

    def test_a_bare_conversion_to_an_integer_is_found(self):
        text = "int cut(double x);\nint cut(double x) { return (int)x; }\n"
        bad = self.compiled("bad", text, "-msse2", "-mfpmath=sse")
        self.assert_fails(self.run_tool("check_objects", "truncations", bad), "cut(double): cvttsd2si")
        bad = self.compiled("bad87", text.replace("int cut", "long long cut").replace("(int)", "(long long)"))
        self.assert_fails(self.run_tool("check_objects", "truncations", bad), "cut(double): fist")
        good = self.compiled("good", text.replace("(int)x", "x > 0"), "-msse2", "-mfpmath=sse")
        self.assert_passes(self.run_tool("check_objects", "truncations", good))

    def test_no_objects_at_all_is_no_success(self):
        for what in ("initialisers", "truncations", "levels"):
            self.assertEqual(self.run_tool("check_objects", what).returncode, 1)


class CheckExports(ToolTest):
    def library(self, names, *options):
        text = "".join(f'extern "C" void {name}() {{}}\n' for name in names)
        source = self.write("library.cpp", text)
        subprocess.run(["g++", "-m32", "-shared", "-fPIC", "-nostdlib", source, "-o", f"{source}.so", *options],
                       check=True)
        return f"{source}.so"

    def setUp(self):
        super().setUp()
        self.names = (TOP / "tools/exports.txt").read_text().split()

    def test_exactly_the_listed_names_pass(self):
        self.assertEqual(len(self.names), 28)
        self.assert_passes(self.run_tool("check_exports", "exports", self.library(self.names)))

    def test_a_missing_and_a_surplus_name_are_found(self):
        run = self.run_tool("check_exports", "exports", self.library(self.names[1:] + ["surplus"]))
        self.assert_fails(run, f"{self.names[0]} is not exported", "surplus is exported but should not be")

    def test_a_library_that_it_needs_is_found(self):
        library = self.library(self.names, "-Wl,--no-as-needed", "-lc")
        self.assert_passes(self.run_tool("check_exports", "imports", library, "libc.so.6"))
        self.assert_fails(self.run_tool("check_exports", "imports", library), "needs libc.so.6 to load")


class CheckFormat(ToolTest):
    def setUp(self):
        super().setUp()
        shutil.copy(TOP / ".clang-format", self.folder)
        self.write("room/good.h", "#pragma once\nint good();\n")
        self.write("script", "#!/bin/sh\necho good\n")

    def assert_finds(self, name, text, sentence):
        self.write(name, text)
        self.assert_fails(self.run_tool("check_format", self.folder), sentence)

    def assert_accepts(self, name, text, *options):
        self.write(name, text)
        self.assert_passes(self.run_tool("check_format", *options, self.folder))

    def test_good_files_pass(self):
        self.assert_passes(self.run_tool("check_format", self.folder))

    def test_clang_format_is_asked_about_every_language_file(self):
        for name in ("room/a.h", "room/a.cpp", "room/a.c"):
            with self.subTest(name):
                self.assert_finds(name, "int  bad ( );\n", f"{name}:1:4: error")
                (self.folder / name).unlink()

    def test_lines_have_at_most_120_columns(self):
        for name, begin in (("a.h", "// "), ("a.cmake", "# "), ("CMakeLists.txt", "# "), ("a.json", '"'),
                            ("a.py", "# "), ("a.sh", "# "), ("words.md", "w"), ("tool", "#!/bin/sh ")):
            with self.subTest(name):
                self.assert_accepts(name, begin + "x" * (120 - len(begin)) + "\n")
                self.assert_finds(name, begin + "x" * (121 - len(begin)) + "\n", f"{name}:1: 121 columns")
                (self.folder / name).unlink()

    def test_columns_are_characters_and_not_bytes(self):
        self.assert_accepts("words.md", "\u00e4" * 120 + "\n")

    def test_rows_of_tables_links_and_pictures_may_be_wide_in_markdown(self):
        for line in ("| a | " + "x" * 120, "[text](" + "x" * 120 + ")", "![picture](" + "x" * 120 + ")"):
            self.assert_accepts("wide.md", f"{line}\n")

    def test_a_named_folder_may_have_any_width(self):
        self.assert_accepts("tests/a.py", "#" * 130 + "\n", "--any-width", "tests")
        self.write("tests_too/a.py", "#" * 130 + "\n")
        self.assertEqual(self.run_tool("check_format", "--any-width", "tests", self.folder).returncode, 1)

    def test_tabs_blanks_at_the_end_and_a_missing_newline_are_found(self):
        self.assert_finds("a.sh", "a\tb\n", "a.sh:1: a tab")
        self.assert_finds("a.sh", "good\na \n", "a.sh:2: a blank at the end of the line")
        self.assert_finds("a.sh", "a\r\n", "a.sh:1: a blank at the end of the line")
        self.assert_finds("a.sh", "a", "a.sh:1: no newline at the end of the file")
        self.assert_finds("a.sh", "a\n\n", "a.sh:2: an empty line at the end of the file")

    def test_folders_that_are_made_are_not_looked_at(self):
        for name in ("build", "cache", "pictures"):
            self.assert_accepts(f"{name}/a.sh", "a\t\n")

    def test_an_empty_tree_is_no_success(self):
        empty = self.folder / "empty"
        empty.mkdir()
        self.assertEqual(self.run_tool("check_format", empty).returncode, 1)


class CheckWords(ToolTest):
    def check(self, name, text):
        self.write(name, text)
        return self.run_tool("check_words", self.folder)

    def test_names_that_windows_defines_away_are_found_in_all_rooms(self):
        for name in ("include/kardeno_soft/a.h", "support/a.h", "host/a.h", "geometry/a.cpp", "spanbuffer/a.cpp",
                     "raster/a.cpp", "frame/a.cpp", "interface/a.cpp", "scenes/a.h", "sample_host/a.cpp"):
            with self.subTest(name):
                self.assert_fails(self.check(name, "int a;\nint near = 1;\n"), f"{name}:2: ", "'near'")
                (self.folder / name).unlink()

    def test_each_of_the_names_is_found(self):
        for word in ("near", "far", "small", "hyper", "interface", "IN", "OUT", "ERROR", "OPTIONAL", "DELETE"):
            self.assert_fails(self.check("raster/a.cpp", f"int {word};\n"), f"'{word}'")

    def test_comments_strings_includes_and_longer_words_do_not_count(self):
        text = ('#include "interface/far.h"\n// near\n/* far\n   small */\nconst char* a = "near \\" far";\n'
                'const char* b = R"(small\nhyper)";\nint nearest, farZ, i_far, x = 1\'000, y = \'"\';\n')
        self.assert_passes(self.check("raster/a.cpp", text))

    def test_code_behind_a_string_or_a_comment_counts(self):
        self.assert_fails(self.check("raster/a.cpp", 'const char* a = "x"; int far;\n'), "a.cpp:1: ")
        self.assert_fails(self.check("raster/a.cpp", "/* x\n*/ int far;\n"), "a.cpp:2: ")
        self.assert_fails(self.check("raster/a.cpp", "int x = 1'000; int far; int y = 1'000;\n"), "a.cpp:1: ")

    def test_min_and_max_are_found_where_a_header_calls_them(self):
        self.assert_fails(self.check("raster/a.h", "int a = std::min(1, 2);\n"), "'min'")
        self.assert_passes(self.check("raster/a.h", "int a = (std::min)(1, 2);\n"))
        self.assert_passes(self.check("raster/a.cpp", "int a = std::min(1, 2);\n"))

    def test_files_for_windows_alone_may_use_its_words(self):
        self.write("raster/b.cpp", "int b;\n")
        self.assert_passes(self.check("interface/entry_win32.cpp", "int a() { return TRUE; }\n"))

    def test_tests_may_not_be_excused(self):
        self.write("raster/b.cpp", "int b;\n")
        for word in ("skip", "may_fail", "should_fail", "expected_failures"):
            text = f'TEST_CASE("a" * doctest::{word}()) {{}}\n'
            self.assert_fails(self.check("tests/raster/a_test.cpp", text), f"{word} would hide a failing test")

    def test_an_empty_tree_is_no_success(self):
        self.assertEqual(self.run_tool("check_words", self.folder).returncode, 1)


class CheckBehaviours(ToolTest):
    def check(self, row):
        self.write("tests/raster/a_test.cpp", 'TEST_CASE("a span "\n          "is drawn")\n{\n}\n')
        self.write("docs/behaviours.md", f"# Table\n\n| behaviour | held by |\n|---|---|\n{row}\n")
        return self.run_tool("check_behaviours", self.folder)

    def test_a_test_that_exists_passes(self):
        self.assert_passes(self.check('| A span is drawn | `tests/raster/a_test.cpp`: "a span is drawn" |'))

    def test_a_missing_test_a_missing_file_and_what_is_no_test_are_found(self):
        self.assert_fails(self.check('| A | `tests/raster/a_test.cpp`: "a span" |'), "no such test", "a span")
        self.assert_fails(self.check('| A | `tests/raster/b_test.cpp`: "a span" |'), "no such file")
        self.assert_fails(self.check("| A | tests/raster, somewhere |"), "not a test")

    def test_every_test_of_a_row_is_looked_for(self):
        good = '`tests/raster/a_test.cpp`: "a span is drawn"'
        self.assert_passes(self.check(f"| A | {good}<br>{good} |"))
        self.assert_fails(self.check(f'| A | {good}<br>`tests/raster/a_test.cpp`: "gone" |'), "gone")

    def test_a_table_without_rows_is_no_success(self):
        self.assertEqual(self.check("nothing").returncode, 1)


class CheckDocuments(ToolTest):
    def check(self, guide):
        self.write("README.md", "# Top\n\n<!-- checked -->\n```sh\ntest -d build/linux-i386/\n```\n")
        self.write("docs/host_guide.md", f"# A guide\n\n{guide}\n")
        self.write("build/somewhere/cmake_install.cmake", "")
        self.write("examples/turning_cube.c", "int main(void) { return 0; }\n")
        if not (self.folder / "include").exists():
            (self.folder / "include").symlink_to(TOP / "include")
        return self.run_tool("check_documents", self.folder / "build/somewhere", "gcc", self.folder)

    def test_blocks_that_work_pass(self):
        block = "<!-- checked -->\n```c\n/* a line */\nmaterial->shininess = 50;\n```"
        run = self.check(block)
        self.assert_passes(run)
        self.assertIn("2 blocks checked", run.stdout)

    def test_a_command_that_fails_is_found(self):
        self.assert_fails(self.check("<!-- checked -->\n```sh\nfalse\ntrue\n```"), "docs/host_guide.md:5: ")

    def test_c_that_does_not_compile_is_found(self):
        self.assert_fails(self.check("<!-- checked -->\n```c\nmaterial->shine = 50;\n```"), "docs/host_guide.md:5: ")

    def test_a_mark_without_a_block_is_found(self):
        self.assert_fails(self.check("<!-- checked -->\n\n```sh\ntrue\n```"), "a mark has no block")

    def test_lines_of_cmake_are_used_in_a_project_with_a_program(self):
        self.assert_passes(self.check("<!-- checked -->\n```cmake\ntarget_link_libraries(host PRIVATE m)\n```"))
        self.assert_fails(self.check("<!-- checked -->\n```cmake\nfind_package(nothing REQUIRED)\n```"), "nothing")

    def test_a_block_without_a_mark_is_found_unless_it_has_no_language(self):
        self.assert_fails(self.check("```sh\ntrue\n```"), "docs/host_guide.md:4: no mark")
        self.assert_passes(self.check("```\na drawing\n```"))

    def test_commands_that_are_only_looked_at_have_their_programs_and_presets(self):
        def look(commands):
            return self.check(f"<!-- looked at: somebody else runs them -->\n```sh\n{commands}\n```")

        self.write("tool", "#!/bin/sh\n").chmod(0o755)
        self.write("CMakePresets.json", '{"workflowPresets": [{"name": "native"}]}')
        self.assert_passes(look("./tool what # does this\ncmake --workflow --preset native # and that"))
        self.assert_fails(look("./gone"), "there is no program ./gone")
        self.assert_fails(look("cmake --workflow --preset other"), "there is no preset other")

    def test_a_language_that_nothing_is_known_about_is_found(self):
        self.assert_fails(self.check("<!-- checked -->\n```ruby\n1\n```"), "'ruby'")

    def test_documents_without_a_block_are_no_success(self):
        self.write("README.md", "# Top\n")
        self.write("docs/host_guide.md", "# A guide\n")
        self.write("build/somewhere/library", "")
        self.assertEqual(self.run_tool("check_documents", self.folder / "build", "gcc", self.folder).returncode, 1)


class CheckLinks(ToolTest):
    def check(self, guide, page=""):
        self.write("README.md", "# Top\n\n[the guide](docs/guide.md)\n")
        self.write("docs/guide.md", f"# A guide\n\n{guide}\n")
        self.write("docs/page.html", f'<h1 id="top">A page</h1>\n{page}\n')
        self.write("docs/a name.svg", "")
        return self.run_tool("check_links", self.folder)

    def test_links_lead_to_files_folders_and_headings(self):
        self.assert_passes(self.check("[a](../README.md) [b](../README.md#top) [c](#a-guide) [d](https://there.is/no)"))
        self.assert_passes(self.check("[a folder](../docs) [a page](page.html#top) ![a picture](a%20name.svg)"))
        self.assert_fails(self.check("[a](gone.md)"), "docs/guide.md: ", "gone.md")
        self.assert_fails(self.check("![a](gone.svg)"), "gone.svg")
        self.assert_fails(self.check("[a](../README.md#gone)"), "../README.md#gone")
        self.assert_fails(self.check("[a](#gone)"), "#gone")

    def test_links_and_pictures_of_pages_lead_somewhere_too(self):
        self.assert_passes(self.check("", '<a id="x" href="guide.md">a</a> <a href="#top"> <img src="a%20name.svg">'))
        for fault in ('<a href="gone.html">', '<img src="gone.svg">', '<object data="gone.svg">', '<a href="#gone">',
                      '<link rel="stylesheet" href="gone.css"/>', '<script src="gone.js">'):
            with self.subTest(fault):
                self.assert_fails(self.check("", fault), "docs/page.html: ", "gone")

    def test_a_link_out_of_the_folder_is_found(self):
        self.assert_fails(self.check("[a](../../)"), "../../")

    def test_code_holds_no_links_but_may_be_the_text_of_one(self):
        self.assert_passes(self.check("`a[1](gone)`\n\n```c\na[1](gone)\n```"))
        self.assert_fails(self.check("[`code`](gone)"), "gone")

    def test_what_is_built_or_fetched_is_not_looked_at(self):
        self.write("build/a.md", "[a](gone.md)")
        self.write("page/node_modules/a.md", "[a](gone.md)")
        self.assert_passes(self.check("[a](../README.md)"))

    def test_documents_without_links_are_no_success(self):
        self.write("README.md", "# Top\n")
        self.assertEqual(self.run_tool("check_links", self.folder).returncode, 1)


if __name__ == "__main__":
    unittest.main()
