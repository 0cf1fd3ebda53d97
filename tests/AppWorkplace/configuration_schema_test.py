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


def run(configuration, *command):
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "configuration.json")
        with open(path, "w", encoding="utf-8") as file:
            json.dump(configuration, file)
        return subprocess.run([PROGRAM, "--config", path, *command], capture_output=True, text=True, timeout=LIMIT_S,
                              check=False)


class ConfigurationTest(unittest.TestCase):
    def agree(self, configuration, is_good):
        """The file alone: `ports` opens nothing."""
        with self.subTest(configuration=configuration):
            self.assertEqual(VALIDATOR.is_valid(configuration), is_good)
            self.assertEqual(run(configuration, "ports").returncode, 0 if is_good else 3)

    def test_schema_is_one(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_example(self):
        with open(EXAMPLE_FILE, encoding="utf-8") as file:
            self.agree(json.load(file), True)

    def test_every_key_is_known_to_both(self):
        told = run({"surprise": 1}, "ports").stderr
        known = re.search(r"known are: (.*)", told).group(1).split(", ")
        self.assertEqual(set(known), set(KEYS))

    def test_good_values(self):
        for key, rule in KEYS.items():
            self.agree({key: {} if rule["type"] == "object" else "x"}, True)
        self.agree({}, True)

    def test_wrong_types(self):
        for key, rule in KEYS.items():
            wrong = [1, True, None, [], "x" if rule["type"] == "object" else {}]
            for value in wrong:
                self.agree({key: value}, False)

    def test_unknown_keys(self):
        self.agree({"surprise": "x"}, False)
        self.agree({"Port": "x"}, False)

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
