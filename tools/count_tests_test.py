#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The count of tests notices a suite that died, one without tests, and one that failed at its end."""

import io
import json
import os
import tempfile
import unittest
from unittest import mock

import count_tests


def report(*results):
    return {"testsuites": [{"name": "Suite", "testsuite": [
        {"name": str(i), "status": "RUN", "result": "SKIPPED" if result == "skipped" else "COMPLETED",
         **({"failures": [{"failure": "no"}]} if result == "failed" else {})}
        for i, result in enumerate(results)]}]}


class Count(unittest.TestCase):
    def count(self, suites):
        """suites: name -> (ran well, report, True for a script, or None for a missing report)."""
        with tempfile.TemporaryDirectory() as build:
            os.mkdir(os.path.join(build, "test-reports"))
            cases = ""
            listed = []
            for name, (well, content) in suites.items():
                path = os.path.join(build, "test-reports", name + ".json")
                listed.append((name, None if content is True else path))
                if isinstance(content, dict):
                    with open(path, "w", encoding="utf-8") as file:
                        json.dump(content, file)
                cases += f'<testcase name="{name}" status="{"run" if well else "fail"}"/>'
            with open(os.path.join(build, "test-reports", "ctest.xml"), "w", encoding="utf-8") as file:
                file.write(f"<testsuite>{cases}</testsuite>")
            out = io.StringIO()
            with mock.patch.object(count_tests, "suites_of", return_value=listed):
                well = count_tests.count(build, out)
            return well, out.getvalue().splitlines()[-1]

    def test_sums_suites_and_scripts(self):
        self.assertEqual((True, "4 passed, 0 failed"),
                         self.count({"a": (True, report("ok", "ok", "ok")), "lint": (True, True)}))

    def test_a_failed_test_fails(self):
        self.assertEqual((False, "1 passed, 1 failed"),
                         self.count({"a": (False, report("ok", "failed"))}))

    def test_a_suite_without_report_fails(self):
        self.assertEqual((False, "1 passed, 1 failed"),
                         self.count({"a": (True, report("ok")), "b": (False, None)}))

    def test_a_suite_without_tests_fails(self):
        self.assertEqual((False, "1 passed, 1 failed"),
                         self.count({"a": (True, report("ok")), "b": (True, report())}))

    def test_a_suite_that_dies_after_its_last_test_fails(self):
        self.assertEqual((False, "2 passed, 1 failed"),
                         self.count({"a": (False, report("ok", "ok"))}))

    def test_no_suite_at_all_fails(self):
        self.assertEqual((False, "0 passed, 0 failed"), self.count({}))

    def test_skipped_tests_are_named(self):
        self.assertEqual((True, "1 passed, 0 failed, 1 skipped"),
                         self.count({"a": (True, report("ok", "skipped"))}))

    def test_a_failed_script_fails(self):
        self.assertEqual((False, "0 passed, 1 failed"), self.count({"lint": (False, True)}))


if __name__ == "__main__":
    unittest.main()
