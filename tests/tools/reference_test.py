"""The reference of the headers: what Doxygen gets of them, and that whatever is said wrongly or not at all is found."""
import shutil
import unittest

from tools_under_test import TOP, ToolTest

HEADER = """/* Records <all of them>.

       code < code; */
#pragma once

/* What Kardeno_Init_Render_Dll makes. */
struct Thing {
    u8 gap0[4];
    /* Host: 0: none; Renderer, later: one,
       or stateLit */
    i32 a, b;
    u8 gap12;
};
KARDENO_SIZE(Thing, 16, 16);
KARDENO_OFFSET(Thing, a, 4, 4);
KARDENO_OFFSET(Thing, b, 8, 12);

enum {
    stateLit = 1 /* with light */
};

/* Does one. */
KARDENO_EXPORT i32 KARDENO_CALL zero(void);
KARDENO_EXPORT i32 KARDENO_CALL nought(void);
/* Does more. */
KARDENO_EXPORT i32 KARDENO_CALL half(void);

/* Does both. */
KARDENO_EXPORT i32 KARDENO_CALL one(void);
KARDENO_EXPORT i32 KARDENO_CALL two(void);

#ifdef __cplusplus
} /* namespace */
#endif
"""


class ReferenceInput(ToolTest):
    def setUp(self):
        super().setUp()
        run = self.run_tool("reference_input", self.write("header.h", HEADER))
        self.assert_passes(run)
        self.text = run.stdout

    def test_the_first_remark_is_about_the_file_and_angles_are_no_tags_but_in_code(self):
        self.assertIn("/** @file\nRecords &lt;all of them&gt;.\n\n    code < code; */\n#pragma", self.text)

    def test_gaps_are_the_hosts(self):
        self.assertNotIn("gap", self.text)

    def test_each_field_of_a_line_has_the_remark_its_writers_and_its_place(self):
        said = "/** **Host**: 0: none; **Renderer**, later: one,\nor #stateLit"
        self.assertIn(f"{said}\n\nAt byte 4. */\ni32 a;\n", self.text)
        self.assertIn(f"{said}\n\nAt byte 8, with 64-bit pointers 12. */\ni32 b;\n", self.text)

    def test_a_record_whose_size_counts_says_it(self):
        self.assertIn("makes.\n\nSize: 16 bytes. */\nstruct Thing {", self.text)

    def test_a_remark_at_the_end_of_a_line_is_about_that_line_and_says_the_value_of_a_constant(self):
        self.assertIn("stateLit = 1 /**< 1: with light */\n", self.text)

    def test_functions_that_a_remark_names_are_links(self):
        self.assertIn("/** What Kardeno_Init_Render_Dll() makes.\n\nSize", self.text)

    def test_functions_share_the_only_remark_of_their_paragraph(self):
        self.assertIn("zero(void);\nKARDENO_EXPORT i32 KARDENO_CALL nought(void);\n/** Does more. */\n", self.text)
        for name in ("one", "two"):
            self.assertIn(f"/** Does both. */\nKARDENO_EXPORT i32 KARDENO_CALL {name}(void);\n", self.text)

    def test_remarks_about_the_end_of_a_block_are_not_for_hosts(self):
        self.assertIn("} /* namespace */\n", self.text)


class MakeReference(ToolTest):
    def setUp(self):
        super().setUp()
        for folder in ("include", "docs/reference", "docs/pictures", "tools"):
            shutil.copytree(TOP / folder, self.folder / "sources" / folder)

    def make(self):
        sources = self.folder / "sources"
        doxyfile = (sources / "docs/reference/Doxyfile.in").read_text()
        for name, value in (("PROJECT_VERSION", "1.0"), ("PROJECT_SOURCE_DIR", sources),
                            ("reference_output", self.folder), ("reference_warnings", "FAIL_ON_WARNINGS")):
            doxyfile = doxyfile.replace(f"@{name}@", str(value))
        return self.run_tool("make_reference", self.write("Doxyfile", doxyfile), self.folder / "reference")

    def spoil(self, name, old, new):
        path = self.folder / "sources" / name
        text = path.read_text()
        self.assertIn(old, text)
        path.write_text(text.replace(old, new))
        return self.make()

    def test_the_pages_say_nothing_of_the_place_of_the_sources_and_their_links_lead_somewhere(self):
        self.assert_passes(self.make())
        pages = list((self.folder / "reference").iterdir())
        self.assertIn("structSceneObject.html", [page.name for page in pages])
        self.assertEqual([page.name for page in pages if self.folder.name.encode() in page.read_bytes()], [])
        self.assertEqual([page.name for page in pages if page.name.startswith("dir_")], [])
        self.assert_passes(self.run_tool("check_links", self.folder / "reference"))

    def test_a_field_or_a_function_without_a_remark_is_found_and_nothing_is_left(self):
        for header, remark, name in (
                ("host_records.h", "    /* Host: 0: nothing to draw */\n", "faceCount"),
                ("kardeno_soft.h", "/* Recomputes the material's flag word and does nothing else. */\n",
                 "Kardeno_Set_Material_Fct_Dll")):
            with self.subTest(name):
                self.assert_fails(self.spoil(f"include/kardeno_soft/{header}", remark, ""), name, "is not documented")
                self.assertFalse((self.folder / "reference").exists())

    def test_a_name_that_does_not_exist_and_a_missing_drawing_are_found(self):
        self.assert_fails(self.spoil("docs/reference/main_page.md", "#outcodeAll", "#outcodeGone"), "outcodeGone")
        (self.folder / "sources/docs/pictures/winding.svg").unlink()
        self.assert_fails(self.make(), "winding.svg")


if __name__ == "__main__":
    unittest.main()
