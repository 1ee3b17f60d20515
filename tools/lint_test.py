#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The lint finds what it is for: each test plants one fault in a clean little house."""

import contextlib
import io
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
import lint

HEAD = "// " + lint.HEAD[0] + "\n// " + lint.HEAD[1] + "\n"


class TheLint(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("src/base/text.h", "int length;\n")
        self.write("src/frame/main_window.cpp", '#include "base/text.h"\n#include <QWidget>\n')

    def write(self, path, body, head=HEAD):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(head + body, encoding="utf-8")

    def faults(self):
        return lint.Lint(self.root).run()

    def assert_found(self, path, body, words, line=3):
        self.write(path, body)
        faults = self.faults()
        self.assertEqual(len(faults), 1, faults)
        self.assertTrue(faults[0].startswith(f"{path}:{line}: "), faults[0])
        self.assertIn(words, faults[0])

    def assert_clean(self, path, body):
        self.write(path, body)
        self.assertEqual(self.faults(), [])

    def test_a_clean_house_has_no_fault(self):
        self.assertEqual(self.faults(), [])

    def test_an_empty_folder_is_no_clean_house(self):
        with tempfile.TemporaryDirectory() as empty:
            self.assertEqual(len(lint.Lint(Path(empty)).run()), 1)

    def test_its_exit_code_tells(self):
        with contextlib.redirect_stdout(io.StringIO()) as printed:
            self.assertEqual(lint.main([str(self.root)]), 0)
            self.write("src/base/low.h", '#include "frame/page.h"\n')
            self.assertEqual(lint.main([str(self.root)]), 1)
        self.assertIn("src/base/low.h:3: ", printed.getvalue())

    def test_a_dialog_outside_the_seam(self):
        for name in ("QMessageBox", "QFileDialog", "QInputDialog", "QColorDialog", "QFontDialog"):
            with self.subTest(name):
                self.assert_found("src/frame/page.cpp", f"{name} box;\n", name)

    def test_a_dialog_in_the_seam(self):
        self.assert_clean("src/desktop/desktop_person.cpp", "#include <QMessageBox>\n")

    def test_a_dialog_in_a_comment_or_in_a_test(self):
        self.assert_clean("src/frame/page.cpp", "// no QMessageBox here\n/* nor\nQFileDialog */\n")
        self.assert_clean("tests/window/test_page.cpp", "QMessageBox& box;\n")

    def test_a_menu_with_an_event_loop_of_its_own(self):
        for call in ("menu.exec(where)", "popupMenu->exec()", "QMenu::exec(list, where)",
                     "menu()->exec(where)"):
            with self.subTest(call):
                self.assert_found("src/frame/page.cpp", call + ";\n", "menu")
        self.assert_clean("src/frame/page.cpp", "menu->popup(where);\nloop.exec();\n")

    def test_an_arrow_upwards(self):
        self.assert_found("src/xml/low.h", '#include "database/items.h"\n', "not below")

    def test_an_arrow_sideways(self):
        self.assert_found("src/editors/a.h", '#include "screens/b.h"\n', "not below")

    def test_an_arrow_out_of_a_room_that_is_not_known(self):
        self.assert_found("src/cellar/a.h", '#include "base/text.h"\n', "no floor")

    def test_qt_in_a_room_without_qt(self):
        for header in ("<QString>", "<QtCore/QString>", "<qglobal.h>"):
            with self.subTest(header):
                self.assert_found("src/common/a.h", f"#include {header}\n", "without Qt")

    def test_qt_in_rules(self):
        self.assert_found("src/frame/rules/a.h", "#include <QString>\n", "without Qt")

    def test_qt_in_the_command_line(self):
        self.assert_found("src/app/cli/a.h", "#include <QString>\n", "without Qt")

    def test_rules_that_reach_for_widgets(self):
        self.assert_found("src/frame/rules/a.h", '#include "controls/page.h"\n', "widgets")
        self.assert_found("src/frame/rules/a.h", '#include "frame/page.h"\n', "widgets")
        self.assert_clean("src/frame/rules/a.h", '#include "frame/rules/b.h"\n')

    def test_a_source_that_is_too_long(self):
        self.assert_found("src/base/long.cpp", "int x;\n" * 599, "longer than 600", 601)

    def test_a_test_that_is_too_long(self):
        self.assert_clean("tests/base/test_long.cpp", "int x;\n" * 998)
        self.assert_found("tests/base/test_long.cpp", "int x;\n" * 999, "longer than 1000", 1001)

    def test_a_long_table(self):
        self.assert_clean("src/base/long.cpp", "// lint: a table\n" + "int x;\n" * 700)

    def test_a_source_without_its_head(self):
        self.write("src/base/bare.h", "int x;\n", head="")
        self.assertEqual(len(self.faults()), 1)
        self.assertIn("does not begin with", self.faults()[0])

    def test_a_build_file_without_its_head(self):
        self.write("src/base/CMakeLists.txt", "kelmar_room(base)\n", head="")
        self.assertEqual(len(self.faults()), 1)

    def test_a_script_has_its_head_below_the_interpreter(self):
        self.write("tools/a.py", "", head="#!/usr/bin/env python3\n" + HEAD.replace("//", "#"))
        self.assertEqual(self.faults(), [])

    def test_unfinished_work(self):
        for word in ("TO" + "DO", "FIX" + "ME"):
            with self.subTest(word):
                self.assert_found("src/base/a.h", f"// {word}: later\n", "unfinished")

    def test_a_test_that_does_not_run(self):
        self.assert_found("tests/base/test_a.cpp", "GTEST_" + "SKIP();\n", "does not run")
        self.assert_found("tests/base/test_a.cpp", "TEST(A, DISABLED" + "_b) {}\n", "does not run")


if __name__ == "__main__":
    unittest.main()
