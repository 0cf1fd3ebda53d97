"""What app_workplace --json writes obeys docs/output.schema.json, and the schema refuses what does not.

Usage: output_schema_test.py PROGRAM SCHEMA
"""

import copy
import json
import os
import signal
import subprocess
import sys
import tempfile
import unittest

import jsonschema

PROGRAM, SCHEMA_FILE = sys.argv[1:3]
LIMIT_S = 60

# Command lines, and the exit status of each.
RUNS = [
    (["session", "--count", "3", "--program", "2"], 0),
    (["session", "--count", "1"], 0),
    (["session", "--program", "9"], 1),
    (["session", "--port", "/dev/does-not-exist", "--serial-id", "1"], 3),
    (["session", "--count", "none"], 2),
    (["scan", "--duration", "1"], 0),
    (["run", "--connect", "listProgram"], 0),
    (["run", "--connect", "setProgram", "progId=2"], 0),
    (["run", "setLock", "lock=perhaps"], 2),
    (["commands"], 0),
    (["commands", "nothing"], 2),
    (["ports"], 0),
    (["doctor", "--scan", "0.2", "--wait-result", "10"], 0),
    (["doctor", "--scan", "0.2", "--serial-id", "2210", "--port", "/dev/null"], 3),
    (["doctor", "--scan", "many"], 2),
    (["config"], 0),
    (["results"], 0),
    (["results", "--last", "1"], 0),
    (["results", "--status", "perhaps"], 2),
]

# Where the runs keep their history.
DATA = tempfile.TemporaryDirectory()

with open(SCHEMA_FILE, encoding="utf-8") as schema_file:
    SCHEMA = json.load(schema_file)
VALIDATOR = jsonschema.Draft202012Validator(SCHEMA)
EVENTS = {definition["properties"]["event"]["const"]: definition
          for name, definition in SCHEMA["$defs"].items() if name.startswith("event-")}


def run(arguments):
    return subprocess.run([PROGRAM, "--json", "--data", DATA.name, *arguments], capture_output=True, text=True,
                          timeout=LIMIT_S, check=False)


# What a line may leave out: a session without a known program, a scan that is no session's.
OPTIONAL = {"summary": {"progId"}, "scan": {"serialId"}, "totals": {"file"}}


def troubled_session():
    """A session whose serial number two wrenches have, and that loses its link: what it writes, line by line."""
    simulator_program = os.path.join(os.path.dirname(PROGRAM), "wrench_simulator")
    with tempfile.TemporaryDirectory() as folder:
        port = os.path.join(folder, "port")
        arguments = ["--console", "--link", port, "--link-delay", "0", "--answer-delay", "0", "--rate", "20"]
        for address in ["AA:00:00:00:00:01", "AA:00:00:00:00:02"]:
            arguments += ["--wrench", f"2210,mac={address}"]
        with subprocess.Popen([simulator_program, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              text=True) as simulator:
            simulator.stdout.readline()  # "ready"
            lines = []
            with subprocess.Popen([PROGRAM, "--json", "session", "--port", port, "--serial-id", "2210", "--data",
                                   folder], stdout=subprocess.PIPE, text=True) as session:
                for line in session.stdout:
                    written = json.loads(line)
                    lines.append(written)
                    if written["event"] == "result" and len([each for each in lines if each["event"] == "result"]) == 1:
                        simulator.stdin.write("unplug\nfault err:4@1\nreplug\n")
                        simulator.stdin.flush()
                    if written["event"] == "link" and written["state"] == "restored":
                        session.send_signal(signal.SIGINT)
            simulator.stdin.close()
            return session.returncode, lines


class OutputTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.runs = []
        for arguments, status in RUNS:
            done = run(arguments)
            cls.runs.append((arguments, status, done))
        cls.troubled_status, cls.troubled = troubled_session()
        cls.objects = [json.loads(line) for _, _, done in cls.runs for line in done.stdout.splitlines()]

    def test_schema_is_one(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_runs_end_as_promised(self):
        for arguments, status, done in self.runs:
            with self.subTest(arguments=arguments):
                self.assertEqual(done.returncode, status, done.stderr)

    def test_every_line_obeys(self):
        for arguments, _, done in self.runs:
            for line in done.stdout.splitlines():
                with self.subTest(arguments=arguments, line=line):
                    VALIDATOR.validate(json.loads(line))

    def test_a_troubled_session_obeys(self):
        self.assertEqual(self.troubled_status, 0)
        for written in self.troubled:
            with self.subTest(written=written):
                VALIDATOR.validate(written)
        states = [each["state"] for each in self.troubled if each["event"] == "link"]
        self.assertEqual(states, ["open", "lost", "restoring", "waiting", "restoring", "restored"])

    def test_every_event_is_seen(self):
        seen = {each["event"] for each in self.objects + self.troubled}
        # A machine may have no port, a good day has no gap, and a good dongle lets go of its link.
        optional = {"port", "gap", "repeat", "unverified"}
        self.assertEqual(seen | optional, set(EVENTS))

    def test_a_failure_is_told_as_an_error(self):
        for arguments, status, done in self.runs:
            events = [json.loads(line)["event"] for line in done.stdout.splitlines()]
            with self.subTest(arguments=arguments):
                self.assertEqual(events.count("error"), 0 if status == 0 else 1)
                # A machine without a port is told so, and what to do.
                is_without_ports = arguments == ["ports"] and not events
                self.assertEqual(bool(done.stderr), status != 0 or is_without_ports)

    def test_results_hold_the_whole_record(self):
        results = [each for each in self.objects if each["event"] == "result"]
        self.assertEqual(len(results), 4)
        for result in results:
            self.assertEqual(len(result["eventData"]), 9)
            self.assertIsInstance(result["eventData"]["readingStatus"], str)

    def test_stored_results_are_those_that_were_told(self):
        told = [each["eventData"] for each in self.objects if each["event"] == "result"]
        stored = [each["entry"]["eventData"] for each in self.objects if each["event"] == "stored"]
        self.assertEqual(stored, told + told[-1:])  # listed whole, and the last one once more

    def test_the_selected_program_is_recorded(self):
        selected = [each["eventData"]["progId"] for each in self.objects if each["event"] == "result"][:3]
        self.assertEqual(selected, [2, 2, 2])


class SchemaTest(unittest.TestCase):
    """Each line that was written, broken in every way there is, is refused."""

    @classmethod
    def setUpClass(cls):
        arguments = [["session", "--count", "1", "--program", "2"], ["session", "--program", "9"], ["commands"],
                     ["run", "checkSerialId"], ["doctor", "--scan", "0.2"], ["config"], ["results"]]
        cls.samples = {}
        for each in arguments:
            done = run(each)
            for line in done.stdout.splitlines():
                cls.samples.setdefault(json.loads(line)["event"], json.loads(line))

    def refuse(self, broken, why):
        with self.subTest(event=broken.get("event"), why=why):
            self.assertFalse(VALIDATOR.is_valid(broken), json.dumps(broken))

    def test_unknown_members(self):
        for sample in self.samples.values():
            self.refuse({**sample, "colour": "red"}, "unknown member")

    def test_missing_members(self):
        for event, sample in self.samples.items():
            for member in set(sample) - OPTIONAL.get(event, set()):
                self.refuse({key: value for key, value in sample.items() if key != member}, f"without {member}")

    def test_members_of_another_type(self):
        for sample in self.samples.values():
            for member, value in sample.items():
                self.refuse({**sample, member: {} if isinstance(value, list) else [value]}, f"{member} of another type")

    def test_unknown_events(self):
        for sample in self.samples.values():
            self.refuse({**sample, "event": "surprise"}, "unknown event")

    def test_times(self):
        for time in ["2026-11-21 08:00:00.123Z", "2026-11-21T08:00:00Z", "2026-11-21T08:00:00.123", "now"]:
            self.refuse({**self.samples["connected"], "time": time}, time)

    def test_changed_records(self):
        for member in self.samples["result"]["eventData"]:
            broken = copy.deepcopy(self.samples["result"])
            broken["eventData"][member] = 1.5
            self.refuse(broken, f"eventData.{member}")
        for member in set(self.samples["result"]["eventData"]) - {"progId"}:
            broken = copy.deepcopy(self.samples["result"])
            del broken["eventData"][member]
            self.refuse(broken, f"without eventData.{member}")

    def test_record_without_a_program(self):
        sample = copy.deepcopy(self.samples["result"])
        del sample["eventData"]["progId"]
        self.assertTrue(VALIDATOR.is_valid(sample))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
