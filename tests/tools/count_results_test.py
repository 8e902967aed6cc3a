"""tools/count_results on logs that are made up."""
import unittest

from tools_under_test import ToolTest

SUMMARY = """[doctest] test cases: 3 | 3 passed | 0 failed | 0 skipped
[doctest] assertions: 7 | 7 passed | 0 failed |
[doctest] Status: SUCCESS!
"""

NODE_SUMMARY = """✔ the page opens (12.5ms)
ℹ tests 4
ℹ suites 0
ℹ pass 4
ℹ fail 0
ℹ cancelled 0
ℹ skipped 0
ℹ todo 0
ℹ duration_ms 124.1
"""


def log(*entries, announced=None):
    """CTest's log of some entries, each a name, what it printed, and perhaps its command."""
    text = "Start testing: Jan 01 00:00 UTC\n"
    for number, (name, output, *command) in enumerate(entries, 1):
        text += f"{'-' * 58}\n{number}/{announced or len(entries)} Testing: {name}\n"
        text += f"{number}/{announced or len(entries)} Test: {name}\nCommand: \"{''.join(command or ['program'])}\"\n"
        text += f"Output:\n{'-' * 58}\n{output}<end of output>\nTest Passed.\n\n"
    return text + "End testing: Jan 01 00:00 UTC\n"


class CountResults(ToolTest):
    def count(self, text, failed=(), call="one"):
        folder = "one/Testing/Temporary"
        self.write(f"{folder}/LastTest.log", text)
        self.write(f"{folder}/LastTestsFailed.log", "".join(f"{i}:{name}\n" for i, name in enumerate(failed, 1)))
        return self.run_tool("count_results", "--in", self.folder, call)

    def assert_counts(self, run, passed, failed, *sentences):
        self.assertEqual(run.stdout.splitlines()[-1], f"{passed} passed, {failed} failed", run.stdout)
        self.assertEqual(run.returncode, 1 if failed else 0)
        for sentence in sentences:
            self.assertIn(sentence, run.stdout)

    def test_a_doctest_program_counts_with_its_cases_and_another_entry_as_one(self):
        run = self.count(log(("tests_raster", SUMMARY), ("check_exports", "")))
        self.assert_counts(run, 4, 0)

    def test_a_file_of_node_tests_counts_with_its_cases(self):
        self.assert_counts(self.count(log(("tests_page_access", NODE_SUMMARY), ("check_exports", ""))), 5, 0)

    def test_node_tests_that_failed_were_cancelled_or_left_out_have_failed(self):
        for name, said in (("fail", "failed"), ("cancelled", "cancelled"), ("skipped", "skipped"),
                           ("todo", "still to do")):
            text = NODE_SUMMARY.replace("pass 4", "pass 3").replace(f"{name} 0", f"{name} 1")
            self.assert_counts(self.count(log(("tests_page_access", text))), 3, 1, f"1 {said}")

    def test_node_tests_without_their_whole_summary_have_failed(self):
        text = NODE_SUMMARY.split("ℹ fail")[0]
        self.assert_counts(self.count(log(("tests_page_access", text))), 0, 1, "stopped before its summary")

    def test_a_file_of_no_node_tests_is_a_failure(self):
        text = NODE_SUMMARY.replace("tests 4", "tests 0").replace("pass 4", "pass 0")
        self.assert_counts(self.count(log(("tests_page_access", text))), 0, 1, "checks nothing")

    def test_a_build_has_one_line_with_its_seconds_before_the_sum(self):
        run = self.count(log(("tests_raster", SUMMARY)), call="one:83:complete")
        self.assertEqual([line.split() for line in run.stdout.splitlines()],
                         ["one 3 passed 0 failed 83 s".split(), "3 passed, 0 failed".split()])

    def test_what_a_build_cannot_test_is_named_below_its_line_and_counts_as_nothing(self):
        run = self.count(log(("tests_library", "[not here] odd stacks: only on x86\r\n" + SUMMARY),
                             ("absent_pages", "[not here] pages: there is no browser\n")))
        self.assert_counts(run, 3, 0)
        self.assertEqual([line.strip() for line in run.stdout.splitlines()[1:3]],
                         ["not here: pages: there is no browser", "not here: odd stacks: only on x86"])

    def test_lines_of_windows_programs_end_in_a_carriage_return(self):
        self.assert_counts(self.count(log(("tests_raster", SUMMARY.replace("\n", "\r\n")))), 3, 0)

    def test_failed_cases_are_counted(self):
        text = SUMMARY.replace("3 passed | 0 failed", "1 passed | 2 failed")
        self.assert_counts(self.count(log(("tests_raster", text)), ["tests_raster"]), 1, 2, "tests_raster")

    def test_failed_cases_count_even_when_the_program_said_that_all_was_well(self):
        text = SUMMARY.replace("3 passed | 0 failed", "1 passed | 2 failed")
        self.assert_counts(self.count(log(("tests_raster", text))), 1, 2)

    def test_a_program_that_failed_after_its_cases_had_passed_counts_one_failure(self):
        self.assert_counts(self.count(log(("tests_raster", SUMMARY)), ["tests_raster"]), 3, 1, "tests_raster")

    def test_a_program_that_stops_before_its_summary_has_failed(self):
        run = self.count(log(("tests_raster", "[doctest] doctest version is \"2.4.9\"\n"), ("check_exports", "")))
        self.assert_counts(run, 1, 1, "tests_raster: stopped before its summary")

    def test_skipped_and_filtered_cases_have_failed(self):
        text = SUMMARY.replace("0 skipped", "2 skipped")
        self.assert_counts(self.count(log(("tests_raster", text))), 3, 2, "2 skipped or filtered out")

    def test_a_summary_that_hides_its_skipped_cases_is_a_failure(self):
        text = SUMMARY.replace(" 0 skipped", "")
        self.assert_counts(self.count(log(("tests_raster", text))), 3, 1, "hides")

    def test_cases_that_may_fail_and_those_that_should_have_failed(self):
        text = "Allowed to fail so marking it as not failed\nFailed as expected so marking it as not failed\n" + SUMMARY
        self.assert_counts(self.count(log(("tests_raster", text))), 1, 2, "2 failed and were excused")

    def test_a_program_without_assertions_or_without_cases_has_failed(self):
        text = SUMMARY.replace("assertions: 7 | 7", "assertions: 0 | 0")
        self.assert_counts(self.count(log(("tests_raster", text))), 3, 1, "checks nothing")
        text = SUMMARY.replace("cases: 3 | 3", "cases: 0 | 0")
        self.assert_counts(self.count(log(("tests_raster", text))), 0, 1, "checks nothing")

    def test_another_entry_that_failed_counts_one_failure(self):
        self.assert_counts(self.count(log(("check_exports", "")), ["check_exports"]), 0, 1, "check_exports")

    def test_an_entry_that_was_not_run_has_failed_though_the_log_calls_it_passed(self):
        self.assert_counts(self.count(log(("check_exports", "", ""))), 0, 1, "check_exports: was not run")
        self.assert_counts(self.count(log(("check_a", "")), ["check_b"]), 1, 1, "check_b: was not run")

    def test_a_fixture_counts_only_when_it_fails(self):
        self.assert_counts(self.count(log(("fixture_wine", ""), ("check_a", ""))), 1, 0)
        self.assert_counts(self.count(log(("fixture_wine", ""), ("check_a", "")), ["fixture_wine"]), 1, 1)

    def test_entries_that_were_announced_and_not_reached_have_failed(self):
        self.assert_counts(self.count(log(("check_a", ""), announced=3)), 1, 2, "2 entries were not reached")

    def test_a_build_without_results_has_failed(self):
        run = self.run_tool("count_results", "--in", self.folder, "missing:5:broken")
        self.assert_counts(run, 0, 1, "missing", "could not be built or tested")
        self.assert_counts(self.count(log()), 0, 1, "could not be built or tested")

    def test_a_build_that_did_not_come_to_its_end_has_failed_whatever_its_log_says(self):
        self.assert_counts(self.count(log(("check_a", "")), call="one:5:broken"), 1, 1, "did not come to its end")

    def test_the_last_line_is_the_sum_over_all_builds(self):
        self.count(log(("check_a", "")))
        run = self.run_tool("count_results", "--in", self.folder, "one", "two")
        self.assert_counts(run, 1, 1)
        self.assertEqual(len(run.stdout.splitlines()), 3)


if __name__ == "__main__":
    unittest.main()
