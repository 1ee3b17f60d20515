#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Counts the tests of a run of ctest: count_tests.py BUILD_FOLDER

Reads the suites from ctest, the outcome of each from test-reports/ctest.xml, and the single tests
from the report that each GoogleTest suite leaves. A suite without a report, or with a report of no
test, is a failure: it died, or its tests got lost. The last line is "N passed, N failed".
"""

import json
import os
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

REPORT_OPTION = "--gtest_output=json:"


def suites_of(build):
    listing = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"],
                             check=True, capture_output=True, text=True).stdout
    for test in json.loads(listing)["tests"]:
        report = next((word[len(REPORT_OPTION):] for word in test.get("command", [])
                       if word.startswith(REPORT_OPTION)), None)
        yield test["name"], report


def outcomes_of(build):
    path = os.path.join(build, "test-reports", "ctest.xml")
    if not os.path.exists(path):
        return {}
    return {case.get("name"): case.get("status") == "run"
            for case in ElementTree.parse(path).getroot().iter("testcase")}


def count_report(path):
    """(passed, failed, skipped) of one report; none when there is no readable one."""
    try:
        with open(path, encoding="utf-8") as file:
            report = json.load(file)
    except (OSError, ValueError):
        return None
    passed = failed = skipped = 0
    for suite in report["testsuites"]:
        for test in suite["testsuite"]:
            if test.get("status") != "RUN" or test.get("result") == "SKIPPED":
                skipped += 1
            elif test.get("failures"):
                failed += 1
            else:
                passed += 1
    return passed, failed, skipped


def count(build, out=sys.stdout):
    passed = failed = skipped = 0
    outcomes = outcomes_of(build)
    for name, report in suites_of(build):
        well = outcomes.get(name, False)
        if report is None:
            counted = (1, 0, 0) if well else (0, 1, 0)
        else:
            counted = count_report(report)
            if counted is None:
                print(f"{name}: left no report", file=out)
                counted = (0, 1, 0)
            elif sum(counted) == 0:
                print(f"{name}: no test found", file=out)
                counted = (0, 1, 0)
            elif not well and counted[1] == 0:
                print(f"{name}: its tests passed, and yet it failed", file=out)
                counted = (counted[0], 1, counted[2])
        print(f"{name}: {counted[0]} passed, {counted[1]} failed", file=out)
        passed, failed, skipped = (a + b for a, b in zip((passed, failed, skipped), counted))
    print(f"{passed} passed, {failed} failed" + (f", {skipped} skipped" if skipped else ""),
          file=out)
    return failed == 0 and passed > 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("count_tests.py BUILD_FOLDER")
    sys.exit(0 if count(sys.argv[1]) else 1)
