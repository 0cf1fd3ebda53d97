"""The simulator and docs/scenario.schema.json agree about what a scenario may hold.

Usage: scenario_schema_test.py SIMULATOR SCHEMA FOLDER_OF_EXAMPLES
"""

import json
import os
import re
import subprocess
import sys
import tempfile
import unittest

import jsonschema

PROGRAM, SCHEMA_FILE, FOLDER = sys.argv[1:4]
LIMIT_S = 60
USAGE = 2

with open(SCHEMA_FILE, encoding="utf-8") as schema_file:
    SCHEMA = json.load(schema_file)
VALIDATOR = jsonschema.Draft202012Validator(SCHEMA)
WRENCH = {"serial": "2210"}
EXAMPLES = sorted(name for name in os.listdir(FOLDER) if name.endswith(".json"))


def ask(path):
    return subprocess.run([PROGRAM, "--scenario", path, "--list-wrenches"], capture_output=True, text=True,
                          timeout=LIMIT_S, check=False)


class ScenarioTest(unittest.TestCase):
    def agree(self, scenario, is_good):
        with self.subTest(scenario=scenario), tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "scenario.json")
            with open(path, "w", encoding="utf-8") as file:
                json.dump(scenario, file)
            done = ask(path)
            self.assertEqual(VALIDATOR.is_valid(scenario), is_good)
            self.assertEqual(done.returncode, 0 if is_good else USAGE, done.stderr)
            if not is_good:
                self.assertIn(f"scenario {path}, line 1: ", done.stderr)

    def test_schema_is_one(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_examples(self):
        self.assertGreaterEqual(len(EXAMPLES), 10)
        for name in EXAMPLES:
            with self.subTest(name=name):
                path = os.path.join(FOLDER, name)
                with open(path, encoding="utf-8") as file:
                    scenario = json.load(file)
                VALIDATOR.validate(scenario)
                done = ask(path)
                self.assertEqual(done.returncode, 0, done.stderr)
                self.assertEqual(done.stdout.splitlines(), [wrench["serial"] for wrench in scenario["wrenches"]])

    def test_every_example_is_told_of(self):
        with open(os.path.join(FOLDER, "README.md"), encoding="utf-8") as file:
            told = re.findall(r"^\| \[?`?([a-z_]+\.json)", file.read(), re.MULTILINE)
        self.assertEqual(sorted(told), EXAMPLES)

    def test_every_kind_of_fault_is_known_to_both(self):
        told = subprocess.run([PROGRAM, "--help"], capture_output=True, text=True, timeout=LIMIT_S, check=False).stdout
        told = told[told.index("Faults, KIND"):told.index("Options:")]
        kinds = re.findall(r"^  ([a-z][a-z-]+)[:\[ ]", told, re.MULTILINE)
        self.assertGreaterEqual(len(kinds), 18)
        for kind in kinds:
            argument = ":1" if kind in ("late", "err") else ""
            for trigger in ("", "%5", "%0.5", "%100", "@3", "@3+"):
                self.agree({"faults": [kind + argument + trigger]}, True)

    def test_members(self):
        for good in ({}, {"seed": 0, "description": "", "$schema": "x"},
                     {"wrenches": [WRENCH, WRENCH | {"mac": "AA:BB:CC:DD:EE:FF"}]},
                     {"wrenches": [WRENCH | {"programs": ["UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1"]}]},
                     {"wrenches": [WRENCH | {"ratePerSecond": 0.5, "inRange": False, "model": "M", "rssiDbm": -120}]},
                     {"dongle": {"mode": "drop", "scanPeriodMs": 1}}, {"timeLineFrom": "first-frame", "timeLine": []}):
            self.agree(good, True)
        for wrong in ([], {"surprise": 1}, {"seed": -1}, {"seed": "1"}, {"seed": 1.5}, {"dongle": []}, {"wrenches": []},
                      {"dongle": {"mode": "loud"}}, {"dongle": {"scanPeriodMs": 0}}, {"dongle": {"speed": 1}},
                      {"wrenches": [{}]}, {"wrenches": [{"serial": "A B"}]}, {"wrenches": [{"serial": "A,B"}]},
                      {"wrenches": [WRENCH | {"mac": "1"}]}, {"wrenches": [WRENCH | {"rssiDbm": 1}]},
                      {"wrenches": [WRENCH | {"programs": 0}]}, {"wrenches": [WRENCH | {"programs": ["UNT0"]}]},
                      {"wrenches": [WRENCH | {"ratePerSecond": 1001}]}, {"wrenches": [WRENCH | {"inRange": "no"}]},
                      {"wrenches": [WRENCH | {"colour": "red"}]}, {"faults": "flip"}, {"faults": [{}]},
                      {"timeLineFrom": "noon"}, {"timeLine": {}}):
            self.agree(wrong, False)

    def test_faults(self):
        for good in ("out-of-range:2210,5", "out-of-range:,5", "split:3,0", "split:1", "glue:10", "flood:1,0", "duplicate-serial:2210@2"):
            self.agree({"faults": [good]}, True)
        for wrong in ("", "flap", "flip:", "flip%0", "flip%0.0", "flip%101", "flip%5@3", "flip@0", "late", "late:x",
                      "echo:1", "cut:0", "unplug:0", "glue:0", "glue:1", "glue:1,5", "FLIP", "split:1,x"):
            self.agree({"faults": [wrong]}, False)

    def test_commands(self):
        for good in ("tighten", "tighten 3", "tighten 3 2210", "range 2210 off", "power 2210 on", "unplug", "unplug 5",
                     "replug", "lose-link", "quit", "fault clear", "fault none", "fault off flip", "fault flip%5",
                     "fault out-of-range:,5@1"):
            self.agree({"timeLine": [{"atMs": 1, "do": good}]}, True)
        for wrong in ("", "jump", "tighten x", "tighten 0", "range 2210", "range 2210 up", "unplug 0", "wrenches", "help",
                      "fault", "fault list", "fault flap", "fault flip%0"):
            self.agree({"timeLine": [{"atMs": 1, "do": wrong}]}, False)
        self.agree({"timeLine": [{"do": "quit"}]}, False)
        self.agree({"timeLine": [{"atMs": -1, "do": "quit"}]}, False)
        self.agree({"timeLine": [{"atMs": 1, "do": "quit", "then": 1}]}, False)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
