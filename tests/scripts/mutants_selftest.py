#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""The program that tries deliberate faults tells what is caught from what survives, hangs or does not fit.

Usage: mutants_selftest.py RUN_PY
"""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

# A shop whose test looks at its prices, and at nothing else.
TREE = {
    "CMakePresets.json": """{
        "version": 6,
        "configurePresets": [
            {"name": "debug", "generator": "Ninja", "binaryDir": "${sourceDir}/build/debug"}
        ]
    }""",
    "CMakeLists.txt": """
        cmake_minimum_required(VERSION 3.25)
        project(shop LANGUAGES NONE)
        enable_testing()
        add_custom_command(OUTPUT shop-tests DEPENDS shop.py
            COMMAND python3 -m py_compile "${CMAKE_SOURCE_DIR}/shop.py"
            COMMAND ${CMAKE_COMMAND} -E copy "${CMAKE_SOURCE_DIR}/shop.py" shop-tests)
        add_custom_target(tests DEPENDS shop-tests)
        add_test(NAME ShopTest COMMAND python3 "${CMAKE_BINARY_DIR}/shop-tests")
        add_test(NAME OtherTest COMMAND python3 -c "raise SystemExit(1)")
    """,
    "shop.py": 'price = 3\nname = "apple"\nassert price == 3\n',
}
CHEAPER = "shop.py: An apple costs less.\n-price = 3\n+price = 2\n"
RENAMED = 'shop.py: An apple is a pear.\n-name = "apple"\n+name = "pear"\n'
ENDLESS = "shop.py: The shop never opens.\n price = 3\n+while True: pass\n"
BROKEN = "shop.py: There is no shop.\n-price = 3\n+price = = 3\n"
ELSEWHERE = "shop.py: A pear costs less.\n-price = 4\n+price = 2\n"


class MutantsTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.root = Path(self.folder.name)
        for name, text in TREE.items():
            (self.root / name).write_text(text, encoding="utf-8")
        (self.root / "scripts/mutants").mkdir(parents=True)
        self.program = shutil.copy(sys.argv[1], self.root / "scripts/mutants")

    def tearDown(self):
        self.folder.cleanup()

    def run_with(self, *mutants, options=()):
        """The status, and what is said."""
        (self.root / "scripts/mutants/list.txt").write_text("\n".join(["tests: shop-tests", "", *mutants]),
                                                            encoding="utf-8")
        result = subprocess.run([sys.executable, "-B", self.program, *options], stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True)
        return result.returncode, result.stdout

    def test_a_fault_that_a_test_notices_is_caught(self):
        status, words = self.run_with(CHEAPER)
        self.assertEqual(status, 0, words)
        self.assertIn("caught by ShopTest", words)
        self.assertRegex(words, r"1 of +1 caught +100 %")

    def test_a_fault_that_no_test_notices_survives(self):
        status, words = self.run_with(CHEAPER, RENAMED)
        self.assertEqual(status, 1, words)
        self.assertIn("survived: list.txt:7: shop.py: An apple is a pear.", words)
        self.assertRegex(words, r"1 of +2 caught +50 %")

    def test_a_test_that_hangs_has_caught_the_fault(self):
        status, words = self.run_with(ENDLESS, options=["--limit", "1"])
        self.assertEqual(status, 0, words)
        self.assertIn("caught by ShopTest (Timeout)", words)

    def test_a_fault_that_does_not_compile_tells_nothing_and_the_rest_is_tried(self):
        status, words = self.run_with(BROKEN, CHEAPER)
        self.assertEqual(status, 2, words)
        self.assertIn("not tried: list.txt:3: shop.py: There is no shop.", words)
        self.assertRegex(words, r"1 of +1 caught")

    def test_a_fault_that_does_not_fit_its_file_is_an_error(self):
        status, words = self.run_with(CHEAPER, ELSEWHERE, options=["--list"])
        self.assertEqual(status, 2, words)
        self.assertIn("list.txt:7", words)

    def test_a_test_that_fails_without_a_fault_is_an_error(self):
        (self.root / "shop.py").write_text(TREE["shop.py"] + "assert price == 4\n", encoding="utf-8")
        status, words = self.run_with(RENAMED)
        self.assertEqual(status, 2, words)
        self.assertIn("ShopTest fails without a fault", words)

    def test_one_can_choose_and_the_tree_stays_as_it_is(self):
        status, words = self.run_with(CHEAPER, RENAMED, options=["--only", "costs LESS"])
        self.assertEqual(status, 0, words)
        self.assertNotIn("pear", words)
        self.assertEqual((self.root / "shop.py").read_text(encoding="utf-8"), TREE["shop.py"])

    def test_the_next_run_begins_without_the_last_fault(self):
        self.run_with(RENAMED)
        status, words = self.run_with(CHEAPER)
        self.assertEqual(status, 0, words)
        self.assertEqual((self.root / "build/mutants/shop.py").read_text(encoding="utf-8"), TREE["shop.py"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
