#!/usr/bin/env python3
"""Tests scripts/mutation/mutants.py: which lines are damaged, and how."""

import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts" / "mutation"))
from mutants import mutants_of

CASES = {
    "  if (a < b) {": {"  if (a <= b) {", "  if (!(a < b)) {"},
    "  x = a + 0xFU;": {"  x = a - 0xFU;", "  x = a + 0xeU;", "  x = a + 0x10U;", "  ;"},
    "  int x = 2.5e-05;": set(),
    "  int x = !ready;": {"  int x = ready;"},
    "  return a;": {"  return !(a);", "  return {};"},
    "  return false;": {"  return true;"},
    "  print(stderr, 'a');": {"  print(stdout, 'a');", "  ;"},
    "  int x = a ? b : c;": {"  int x = !(a) ? b : c;"},
    '  print("a < b && 1");  // 1 + 1': {"  ;"},
    "  std::vector<int> f(int* x, T&& y);": set(),
    "  [[format(1, 2)]] static_assert(1 < 2);": set(),
    "constexpr std::array<char, n> k{b, 'x'};": set(),
    '  const char* k[] = {"a", "b"};': {'  const char* k[] = {"b", "a"};'},
    "const int k[] = {\n    {a},\n    {b},\n};": {"    {b},\n    {a},"},
    "#ifdef _WIN32\nint x = 1;\n#else\nint x = a;\n#endif": set(),
}


class MutantsTest(unittest.TestCase):
    def test_each_line_is_damaged_in_every_way_it_can_be(self):
        for text, expected in CASES.items():
            with self.subTest(text):
                self.assertEqual({mutant.after for mutant in mutants_of("a.cpp", text)}, expected)

    def test_a_mutant_replaces_the_lines_it_names(self):
        text = "a;\nconst int k[] = {\n    {a},\n    {b},\n};"
        (mutant,) = mutants_of("a.cpp", text)
        self.assertEqual(mutant.applied(text), "a;\nconst int k[] = {\n    {b},\n    {a},\n};")


unittest.main()
