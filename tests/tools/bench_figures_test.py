"""What ./bench computes from its measurements: medians, ratios, the forms of its tables, and what callgrind counted."""
import sys
import unittest

from tools_under_test import TOP

sys.path.insert(0, str(TOP / "benches/scripts"))

import callgrind_profile  # noqa: E402
import cells  # noqa: E402
import figures  # noqa: E402
import growth_scenes  # noqa: E402
import machine  # noqa: E402
import peer_tables  # noqa: E402
import profile_picture  # noqa: E402
import routine_tables  # noqa: E402
import scene_builder  # noqa: E402
import turns  # noqa: E402


class Figures(unittest.TestCase):
    def test_the_median_of_an_even_number_of_values_lies_between_the_middle_two(self):
        self.assertEqual(figures.median([4.0, 1.0, 3.0]), 3.0)
        self.assertEqual(figures.median([4.0, 1.0, 3.0, 2.0]), 2.5)

    def test_the_spread_is_a_part_of_the_median(self):
        self.assertEqual(figures.spread([9.0, 10.0, 12.0]), 0.3)
        self.assertEqual(figures.spread([7.0]), 0.0)

    def test_there_is_no_ratio_to_nothing_and_of_nothing(self):
        self.assertEqual(figures.ratio(3.0, 4.0), 0.75)
        self.assertIsNone(figures.ratio(3.0, 0))
        self.assertIsNone(figures.ratio(3.0, None))
        self.assertIsNone(figures.ratio(None, 4.0))

    def test_numbers_have_about_three_digits_that_count(self):
        for value, text in ((0.01234, "0.0123"), (0.1234, "0.123"), (0.9994, "0.999"), (1.0, "1.00"), (12.344, "12.34"),
                            (123.44, "123.4"), (1234.4, "1234"), (None, "-")):
            self.assertEqual(figures.number(value), text)

    def test_a_change_is_a_percentage_with_its_sign(self):
        self.assertEqual(figures.change(150, 100), "+50.00 %")
        self.assertEqual(figures.change(99, 100), "-1.00 %")
        self.assertEqual(figures.change(100, 100), "same")
        self.assertEqual(figures.change(100, None), "-")
        self.assertEqual(figures.change(None, 100), "-")

    def test_a_text_table_aligns_names_to_the_left_and_figures_to_the_right(self):
        self.assertEqual(figures.text_table(["scene", "ms"], [["a", "1.00"], ["longer", "10.00"]]),
                         "scene      ms\n"
                         "------  -----\n"
                         "a        1.00\n"
                         "longer  10.00")

    def test_a_table_of_markdown_has_the_same_cells(self):
        self.assertEqual(figures.markdown_table(["scene", "ms"], [["a", "1.00"]]),
                         "| scene | ms |\n"
                         "|---|--:|\n"
                         "| a | 1.00 |")


class Turns(unittest.TestCase):
    def test_files_of_the_project_are_named_from_its_top_and_others_as_they_are(self):
        self.assertEqual(turns.relative(TOP / "build/a/frames_bench"), "build/a/frames_bench")
        self.assertEqual(turns.relative(TOP.parent / "elsewhere"), str(TOP.parent / "elsewhere"))
        self.assertEqual(turns.relative(36), "36")

    def test_a_result_is_the_median_over_rounds_of_the_medians_of_frames(self):
        rounds = [{"milliseconds": [1.0, 2.0, 9.0], "pixels": "ab"}, {"milliseconds": [4.0, 4.0, 4.0], "pixels": "ab"},
                  {"milliseconds": [3.0, 3.0, 3.0], "pixels": "ab"}]
        result = turns.Result(rounds)
        self.assertEqual(result.medians, [2.0, 4.0, 3.0])
        self.assertEqual(result.median, 3.0)
        self.assertEqual(result.pixels, "ab")


# Two functions of the renderer, and one of the C library which the second calls. The first has two lines of its own,
# one that was inlined from a header of its room, and one of support/.
PROFILE = """\
version: 1
events: Ir

ob=(1) /lib/libkardeno_soft.so
fl=(1) /src/raster/span_walk.cpp
fn=(1) first
10 100
+1 20
fi=(2) /src/raster/span_values.h
5 7
fi=(3) /src/support/arithmetic.h
8 3
fe=(1)
12 1

fl=(4) /src/spanbuffer/edge_table.cpp
fn=(2) second
* 50
cob=(2) /lib/libc.so
cfi=(5) /build/memset.c
cfn=(3) memset
calls=1 0
+4 1000
+1 2

ob=(2)
fl=(5)
fn=(3)
0 1000
"""


class CallgrindProfile(unittest.TestCase):
    def test_instructions_count_where_they_are_written_and_arithmetic_where_it_is_used(self):
        self.assertEqual(callgrind_profile.counts_of(PROFILE), {
            "raster/span_walk.cpp": 100 + 20 + 3 + 1,
            "raster/span_values.h": 7,
            "spanbuffer/edge_table.cpp": 50 + 2,
            "C library": 1000,
        })

    def test_rooms_are_told_from_the_folders_of_the_host_program(self):
        for file, stage in (("/a/benches/raster/span_walk.h", "raster/span_walk.h"),
                            ("/a/sample_host/host/camera.cpp", "host program"),
                            ("/a/sample_host/main.cpp", "host program"),
                            ("/a/benches/frames/neutral_scene.cpp", "host program"),
                            ("/a/host/host_context.h", "host/host_context.h"),
                            ("raster/span_walk.h", "raster/span_walk.h"), ("./support/lanes.h", None),
                            ("sample_host/main.cpp", "host program"), ("memset.S", None),
                            ("/usr/include/c++/12/bits/stl_algo.h", None), ("???", None)):
            self.assertEqual(callgrind_profile.stage_of(file), stage, file)

    def test_rooms_are_added_up(self):
        self.assertEqual(callgrind_profile.by_room({"raster/a.h": 3, "raster/b.h": 4, "C library": 5}),
                         {"raster": 7, "C library": 5})

    def test_tracked_counts_are_read_as_they_were_written(self):
        counts = {"fill/tex": {"raster": 1234567, "host program": 12}, "room/flat": {"C library": 3}}
        text = callgrind_profile.written_counts(counts, ["a remark"])
        self.assertEqual(text.splitlines()[0], "# a remark")
        self.assertIn("1,234,567", text)
        self.assertEqual(callgrind_profile.read_counts(text), counts)

    def test_shares_are_percentages_of_each_scene_and_small_ones_are_left_out(self):
        scenes = {"one": callgrind_profile.Counter({"raster/a.h": 75, "geometry/b.h": 25}),
                  "two": callgrind_profile.Counter({"raster/a.h": 996, "geometry/b.h": 3, "frame/c.h": 1})}
        self.assertEqual(callgrind_profile.share_table(scenes),
                         (["stage", "one", "two"], [["geometry/b.h", "25.0", "0.3"], ["raster/a.h", "75.0", "99.6"]]))


class ProfilePicture(unittest.TestCase):
    def test_a_bar_is_divided_like_the_counts_and_leaves_out_what_would_not_be_seen(self):
        counts = {"raster": 7500, "spanbuffer": 2490, "frame": 10}
        self.assertEqual(profile_picture.parts_of(counts), [("spanbuffer", 0.249), ("raster", 0.75)])
        picture = profile_picture.picture({"fill/tex": counts})
        self.assertIn(f'width="{0.75 * profile_picture.WIDTH:.1f}"', picture)
        self.assertIn("<title>spanbuffer: 24.9 %</title>", picture)
        self.assertNotIn("frame", picture)


class PeerTable(unittest.TestCase):
    PEERS = {"wide": 2.0, "narrow": 1.0}
    BITS = {"wide": 16, "narrow": 8}

    def test_ours_stands_beside_the_best_peer_and_the_best_with_as_many_bits(self):
        self.assertEqual(peer_tables.row_of("fill/flat", {"flat": 3.0}, self.PEERS, self.BITS),
                         ["fill/flat", "3.00", "narrow", "1.00", "3.00", "wide", "2.00", "1.50"])

    def test_of_two_kinds_of_maps_the_faster_counts_and_is_named(self):
        ours = {"16-bit map": 4.0, "8-bit map": 3.0}
        self.assertEqual(peer_tables.row_of("fill/tex", ours, self.PEERS, self.BITS)[1], "3.00 (8-bit map)")

    def test_without_peers_there_are_dashes(self):
        self.assertEqual(peer_tables.row_of("fill/flat", {"flat": 3.0}, {}, {}), ["fill/flat", "3.00", *("-" * 6)])


class RoutineTable(unittest.TestCase):
    PLAIN = {"form": "plain", "times": [9.0, 5.0, 3.0, 2.0, 1.5, 1.2, 1.0]}
    PACKED = {"form": "packed", "times": [9.0, 5.0, 3.0, 1.5, 1.0, 0.8, 0.6]}
    BARE = [{"form": "bare", "times": [0, 0, 0, 1.5, 1.0, 0.7, 0.4]},
            {"form": "bare", "times": [0, 0, 0, 1.2, 1.1, 0.6, 0.5]}]

    def found(self, *forms, **changes):
        return {"routine": "copy", "map": "any", "format": "565", "same pixels": True, "forms": forms, **changes}

    def test_the_floor_is_the_faster_bare_loop_and_the_last_column_a_multiple_of_it(self):
        rows = routine_tables.rows_of(self.found(self.PLAIN, self.PACKED, *self.BARE))
        self.assertEqual([row[:2] for row in rows], [["copy any", "plain"], ["", "packed"], ["", "bare"]])
        self.assertEqual(rows[2][2:], ["-", "-", "-", "1.20", "1.00", "0.600", "0.400", "1.00"])
        self.assertEqual([row[-1] for row in rows], ["2.50", "1.50", "1.00"])

    def test_a_routine_without_a_packed_form_and_a_bare_loop_is_one_line(self):
        self.assertEqual(routine_tables.rows_of(self.found(self.PLAIN)),
                         [["copy any", "plain", "9.00", "5.00", "3.00", "2.00", "1.50", "1.20", "1.00", "-"]])

    def test_other_pixels_are_marked(self):
        row = routine_tables.rows_of(self.found(self.PLAIN, **{"same pixels": False, "format": "555"}))[0]
        self.assertEqual(row[0], "copy any 5-5-5 (!)")


class Scenes(unittest.TestCase):
    def test_random_numbers_are_the_same_on_every_machine(self):
        # 11 x 1664525 + 1013904223 = 1032213998; of its 32 bits the upper 24 are 1032213998 // 256 = 4032085.
        self.assertEqual(scene_builder.RandomNumbers(11).next(), 4032085)

    def test_a_matrix_times_another_does_first_the_other(self):
        moved = scene_builder.product(scene_builder.translation(1, 2, 3), scene_builder.rotation("z", 90))
        self.assertEqual(moved[12:15], [1, 2, 3])

    def test_a_file_holds_what_its_head_announces(self):
        scene = growth_scenes.scene_of("layers", 2)  # two quads and three frames
        self.assertEqual((len(scene.vertices), len(scene.triangles), len(scene.frames)), (8, 4, 3))

    def test_small_triangles_run_counter_clockwise_on_the_screen(self):
        scene = growth_scenes.empty_scene()
        for corners in (((0, 0), (0, 8), (8, 8)), ((0, 0), (8, 8), (0, 8))):
            growth_scenes.add_triangle(scene, *corners, 10.0, (0, 0, 0))
        for a, b, c, _ in scene.triangles:
            (ax, ay), (bx, by), (cx, cy) = (scene.vertices[corner][:2] for corner in (a, b, c))
            self.assertGreater((bx - ax) * (cy - ay) - (by - ay) * (cx - ax), 0)  # y points up

    def test_cells_are_named_by_scene_or_by_scene_and_variant(self):
        every_cell = cells.neutral_cells(TOP)
        names = [cell.name for cell in cells.named_cells(every_cell, ["alpha", "fill/flat"])]
        self.assertEqual(names, ["fill/flat", "alpha/tex", "alpha/tex_add", "alpha/tex_lit", "alpha/tex_lit_add",
                                 "alpha/gouraud", "alpha/flat"])
        self.assertEqual(cells.named_cells(every_cell, []), every_cell)


class Machine(unittest.TestCase):
    def test_flags_that_matter_to_speed_are_told_from_others(self):
        words = ["g++", "-m32", "-O2", "-DNDEBUG", "-Wall", "-I/a", "-o", "a.o", "-fPIC", "-std=c++20", "-MD", "-MT",
                 "-g", "-ffile-prefix-map=/a/=", "-fdebug-prefix-map=/a/b=."]
        self.assertEqual([word for word in words if machine.is_flag_of_interest(word)],
                         ["-m32", "-O2", "-DNDEBUG", "-fPIC", "-std=c++20"])
