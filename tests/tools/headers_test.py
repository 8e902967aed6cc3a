"""What is checked about the installed headers and what is made from them, on copies that are spoilt: each fault is
found."""
import shutil
import unittest

from tools_under_test import TOP, ToolTest


class HeadersTest(ToolTest):
    """A test with a copy of the headers, their tools and what is made from them."""

    def setUp(self):
        super().setUp()
        for folder in ("include", "tools", "tests/headers"):
            shutil.copytree(TOP / folder, self.folder / folder)
        for document in ("records.md", "records.json"):
            (self.folder / "docs").mkdir(exist_ok=True)
            shutil.copy2(TOP / "docs" / document, self.folder / "docs")

    def spoil(self, header, old, new):
        path = self.folder / "include/kardeno_soft" / header
        text = path.read_text()
        self.assertIn(old, text)
        path.write_text(text.replace(old, new))

    def run_copy(self, tool, *arguments):
        return self.run_tool(self.folder / "tools" / tool, *arguments)


class CheckHeader(HeadersTest):
    def check(self):
        return self.run_copy("check_header", "gcc", "g++")

    def test_the_header_as_it_is_passes(self):
        self.assert_passes(self.check())

    def test_what_c89_does_not_have_is_found(self):
        self.spoil("version.h", "#pragma once", "#pragma once\n// a comment")
        self.assert_fails(self.check(), "c89, own_names.c")

    def test_what_cpp98_does_not_have_is_found(self):
        self.spoil("compilers.h", "RECORD(name) struct name", "RECORD(name) struct name; static_assert(true)")
        self.assert_fails(self.check(), "c++98, own_names.cpp")

    def test_a_name_that_is_taken_from_the_host_is_found(self):
        self.spoil("c_names.h", "#define RenderView KardenoRenderView", "#define RenderView RenderView")
        self.assert_fails(self.check(), "own_names.c:")

    def test_a_macro_that_is_taken_from_the_host_is_found(self):
        self.spoil("c_names_end.h", '#pragma pop_macro("f32")', "")
        self.assert_fails(self.check(), "own_names.c:")

    def test_assertions_that_do_not_hold_anything_are_found(self):
        self.spoil("compilers.h", "[(condition) ? 1 : -1]", "[1]")
        self.assert_fails(self.check(), "takes a field that is not where it should be")

    def test_records_that_follow_the_packing_of_a_host_are_found(self):
        self.spoil("host_records.h", "#pragma pack(push, 8)", "#pragma pack(push)")
        self.assert_fails(self.check(), "the records change with the packing of a host's own")

    def test_silence_about_a_machine_that_does_not_fit_is_found(self):
        self.spoil("compilers.h", "#error", "#warning")
        self.assert_fails(self.check(), "says nothing about __SIZEOF_POINTER__=2")

    def test_a_callback_of_any_convention_is_found(self):
        self.spoil("host_records.h", "void(KARDENO_CALL* update)", "void(* update)")
        self.assert_fails(self.run_copy("check_header", "gcc -m32", "g++ -m32"), "KARDENO_CALL does not fit")


class MadeFromTheHeaders(HeadersTest):
    def test_what_is_up_to_date_passes(self):
        self.assert_passes(self.run_copy("list_records", "--check"))
        self.assert_passes(self.run_copy("write_c_names", "--check"))

    def test_a_new_constant_asks_for_its_c_name_and_its_line(self):
        self.spoil("host_records.h", "transparencyHalf = 50",
                   "transparencyFull = 100, /* all */\n    transparencyHalf = 50")
        self.assert_fails(self.run_copy("write_c_names", "--check"), "c_names.h is not", "c_names_end.h is not")
        self.assert_fails(self.run_copy("list_records", "--check"), "docs/records.json is not what the headers say")
        self.assert_passes(self.run_copy("write_c_names"))
        self.assert_passes(self.run_copy("list_records"))
        self.assert_passes(self.run_copy("write_c_names", "--check"))
        self.assert_passes(self.run_copy("list_records", "--check"))
        names = (self.folder / "include/kardeno_soft/c_names.h").read_text()
        self.assertIn("#define transparencyFull kardenoTransparencyFull\n", names)
        self.assertIn('{"name": "transparencyFull", "value": 100, "about": "all"}',
                      (self.folder / "docs/records.json").read_text())

    def test_a_field_and_a_constant_without_a_remark_are_refused(self):
        self.spoil("host_records.h", "    /* Host: 0: nothing to draw */\n", "")
        self.assert_fails(self.run_copy("list_records"), "SceneObject.faceCount has no remark")
        self.spoil("host_records.h", "    i32 faceCount;", "    /* Host: any */\n    i32 faceCount;")
        self.spoil("render_modes.h", "/* lit palette indices */", "")
        self.assert_fails(self.run_copy("list_records"), "rowLitTextured has no remark")

    def test_a_place_that_no_compiler_would_give_is_refused(self):
        self.spoil("host_records.h", "KARDENO_OFFSET(SceneFace, faceTest, 64, 88)",
                   "KARDENO_OFFSET(SceneFace, faceTest, 64, 92)")
        self.assert_fails(self.run_copy("list_records"), "SceneFace.faceTest is not where its header asserts it to be")

    def test_a_field_whose_place_no_compiler_looks_at_is_refused(self):
        self.spoil("host_records.h", "KARDENO_OFFSET(SceneFace, faceTest, 64, 88);\n", "")
        self.assert_fails(self.run_copy("list_records"), "SceneFace.faceTest has no KARDENO_OFFSET line")

    def test_a_size_that_no_compiler_would_give_is_refused(self):
        self.spoil("host_records.h", "KARDENO_SIZE(MaterialNode, 8, 16)", "KARDENO_SIZE(MaterialNode, 8, 12)")
        self.assert_fails(self.run_copy("list_records"), "MaterialNode has not the size that its header asserts")


if __name__ == "__main__":
    unittest.main()
