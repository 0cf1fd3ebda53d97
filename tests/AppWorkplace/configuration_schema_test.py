"""The program and docs/configuration.schema.json agree about what a configuration may hold.

Usage: configuration_schema_test.py PROGRAM SCHEMA EXAMPLE
"""

import json
import os
import re
import subprocess
import sys
import tempfile
import unittest

import jsonschema

PROGRAM, SCHEMA_FILE, EXAMPLE_FILE = sys.argv[1:4]
LIMIT_S = 60

with open(SCHEMA_FILE, encoding="utf-8") as schema_file:
    SCHEMA = json.load(schema_file)
VALIDATOR = jsonschema.Draft202012Validator(SCHEMA)
KEYS = SCHEMA["properties"]
DRIVER_KEYS = KEYS["driver"]["properties"]
SECTIONS = [key for key, rule in KEYS.items() if rule.get("type") == "object"]


def good_value(rule):
    if "enum" in rule:
        return rule["enum"][-1]
    return {"string": "x", "boolean": True, "object": {}, "integer": rule.get("minimum", 1), "number": 1.5,
            "array": ["x"]}[rule["type"]]


def run(configuration, *command):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "configuration.json")
        with open(path, "w", encoding="utf-8") as file:
            json.dump(configuration, file)
        return subprocess.run([PROGRAM, "--config", path, *command], capture_output=True, text=True, timeout=LIMIT_S,
                              check=False)


class ConfigurationTest(unittest.TestCase):
    def agree(self, configuration, is_good):
        """`config` reads the file and asks the driver what it knows; it opens nothing."""
        with self.subTest(configuration=configuration):
            self.assertEqual(VALIDATOR.is_valid(configuration), is_good)
            self.assertEqual(run(configuration, "config").returncode, 0 if is_good else 3)

    def test_schema_is_one(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_example(self):
        with open(EXAMPLE_FILE, encoding="utf-8") as file:
            self.agree(json.load(file), True)

    def known_keys(self, configuration, *command):
        return set(re.search(r"known are: (.*)", run(configuration, *command).stderr).group(1).split(", "))

    def test_every_key_is_known_to_both(self):
        self.assertEqual(self.known_keys({"surprise": 1}, "ports"), set(KEYS))
        for section in SECTIONS:
            with self.subTest(section=section):
                self.assertEqual(self.known_keys({section: {"surprise": 1}}, "config"),
                                 set(KEYS[section]["properties"]))

    def test_good_values(self):
        everything = {key: good_value(rule) for key, rule in KEYS.items() if key not in ("plugins", *SECTIONS)}
        for section in SECTIONS:
            everything[section] = {key: good_value(rule) for key, rule in KEYS[section]["properties"].items()}
        for key, value in everything.items():
            self.agree({key: value}, True)
        self.agree(everything, True)
        self.agree({}, True)

    def test_wrong_types(self):
        wrong = {"string": [1, True, None, [], {}], "boolean": [1, "true", None, [], {}],
                 "object": [1, True, None, [], "x"]}
        for key, rule in KEYS.items():
            for value in wrong[rule.get("type", "string")]:
                self.agree({key: value}, False)

    def test_wrong_types_of_commands_options(self):
        wrong = {"boolean": [1, "true", None], "integer": ["1", 1.5, True], "number": ["1", True, None],
                 "string": [1, True, None], "array": ["x", [1], None, {}]}
        for section in set(SECTIONS) - {"driver"}:
            for key, rule in KEYS[section]["properties"].items():
                for value in wrong[rule.get("type", "string")]:
                    self.agree({section: {key: value}}, False)

    def test_comments(self):
        self.agree({"//": "x", "//port": "y", **{section: {"//": "z"} for section in SECTIONS}}, True)
        self.agree({"//": 1}, False)
        for section in SECTIONS:
            self.agree({section: {"//x": 1}}, False)

    def test_the_default_that_it_writes(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "new", "configuration.json")
            written = subprocess.run([PROGRAM, "config", "--write-default", path], capture_output=True, text=True,
                                     timeout=LIMIT_S, check=False)
            self.assertEqual(written.returncode, 0, written.stderr)
            with open(path, encoding="utf-8") as file:
                configuration = json.load(file)
            again = subprocess.run([PROGRAM, "config", "--write-default", path], capture_output=True, text=True,
                                   timeout=LIMIT_S, check=False)
            self.assertEqual(again.returncode, 3, "a file that is there must not be lost")
        self.agree(configuration, True)
        for section in [configuration, *(configuration[name] for name in SECTIONS)]:
            commented = {key[2:] for key in section if key.startswith("//")}
            said = {key for key in section if not key.startswith("//")} - set(SECTIONS)
            self.assertEqual(said - commented, set(), "each value has its comment")
        for name in SECTIONS:
            self.assertEqual({key.lstrip("/") for key in configuration[name]} - {""}, set(KEYS[name]["properties"]))
        settings = run(configuration, "config", "--json").stdout.splitlines()
        standard = run({}, "config", "--json").stdout.splitlines()
        self.assertEqual([(each["name"], each["value"]) for each in map(json.loads, settings)],
                         [(each["name"], each["value"]) for each in map(json.loads, standard)])

    def test_unknown_keys(self):
        self.agree({"surprise": "x"}, False)
        self.agree({"Port": "x"}, False)
        for section in SECTIONS:
            self.agree({section: {"surprise": 1}}, False)
        self.agree({"driver": {"port": "/dev/x"}}, False)
        self.agree({"driver": {"trace": "-"}}, False)

    def test_not_an_object(self):
        self.agree(["port"], False)

    def test_values_of_the_driver(self):
        """The driver looks at them when it opens the port: a wrong one is named then."""
        wrong = {"baudRate": 49, "dataBits": 9, "parity": "some", "stopBits": 3, "flowControl": "x",
                 "keepAliveSilenceMs": 99}
        self.assertEqual(set(wrong), set(DRIVER_KEYS))
        for key, value in wrong.items():
            configuration = {"driver": {key: value}}
            with self.subTest(configuration=configuration):
                self.assertFalse(VALIDATOR.is_valid(configuration))
                done = run(configuration, "scan", "--duration", "1")
                self.assertEqual(done.returncode, 3)
                self.assertIn(f'"{key}"', done.stderr)

    def test_limits_of_the_driver(self):
        for key, values in {"baudRate": [50, 4000000], "keepAliveSilenceMs": [100, 3600000]}.items():
            for value in values:
                with self.subTest(key=key, value=value):
                    self.assertTrue(VALIDATOR.is_valid({"driver": {key: value}}))
            self.assertFalse(VALIDATOR.is_valid({"driver": {key: values[1] + 1}}))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
