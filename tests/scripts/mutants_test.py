"""Which changes scripts/mutants.py plants, and what it leaves alone.

mutants_test.py SCRIPT
"""

import importlib.util
import pathlib
import sys
import unittest

sys.dont_write_bytecode = True

SCRIPT = pathlib.Path(sys.argv[1])
specification = importlib.util.spec_from_file_location("mutants", SCRIPT)
mutants = importlib.util.module_from_spec(specification)
specification.loader.exec_module(mutants)


def changed_lines(text):
    return [mutant.changed() for mutant in mutants.mutants_of("file.cpp", text)]


class MutantsTest(unittest.TestCase):
    def test_a_bound_is_moved(self):
        self.assertEqual(changed_lines("  if (a < b) {"), ["  if (a <= b) {"])

    def test_a_statement_goes_as_a_whole(self):
        self.assertIn("  ;", changed_lines("  Append(row, all);"))

    def test_declarations_stay(self):
        self.assertEqual(changed_lines("  const PointList row(first, last);"), [])

    def test_a_literal_moves_both_ways(self):
        self.assertEqual(changed_lines("  int a = f(7);"), ["  int a = f(8);", "  int a = f(6);"])

    def test_single_precision_becomes_double(self):
        self.assertIn("  const double mean = sum;", changed_lines("  const float mean = sum;"))

    def test_texts_comments_and_directives_stay(self):
        for line in ['  f("a < b");', "  // a < b", '#if A == 1', "  g();  // a == b"]:
            self.assertEqual([text for text in changed_lines(line) if text.strip() != ";" and ";  //" not in text], [])

    def test_long_comments_stay(self):
        self.assertEqual(changed_lines("int id;  /**< row * columns,\n               1 + 2 */"), [])

    def test_brackets_of_templates_stay(self):
        self.assertEqual(changed_lines("std::vector<int> list;"), [])

    def test_every_place_of_a_line_is_one(self):
        self.assertEqual(changed_lines("  x = a + b + c;")[:2], ["  x = a - b + c;", "  x = a + b - c;"])

    def test_known_changes_are_places_that_there_are(self):
        keys = mutants.equivalent_keys()
        self.assertTrue(keys)
        there = set()
        for file in mutants.sources(list(mutants.ROOMS)):
            for mutant in mutants.mutants_of(file, (mutants.ROOT / file).read_text(encoding="utf-8")):
                there |= {mutant.key(), f"{file}: {mutant.text.strip()} => *"}
        self.assertEqual(keys - there, set())

    def test_every_known_change_has_a_reason(self):
        lines = mutants.EQUIVALENT.read_text(encoding="utf-8").splitlines()
        for line, following in zip(lines, lines[1:] + [""]):
            if line and not line.startswith(("#", " ")):
                self.assertTrue(following.startswith("  "), line)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
