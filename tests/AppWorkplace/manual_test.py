"""The manual pages tell of every command and option that the programs have, and are well formed.

Usage: manual_test.py FOLDER_OF_THE_PAGES PROGRAM…
"""

import os
import re
import subprocess
import sys
import unittest

FOLDER, PROGRAMS = sys.argv[1], sys.argv[2:]
LIMIT_S = 30


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, timeout=LIMIT_S, check=False)


def page_of(program):
    return os.path.join(FOLDER, os.path.basename(program) + ".1")


def rendered(program):
    return re.sub(".\b", "", run("mandoc", "-T", "utf8", page_of(program)).stdout)


def paragraphs(program):
    """The texts beside and below the options, by the option, each on one line."""
    found = {}
    for match in re.finditer(r"^ +((?:-\w, )?--[a-z-]+)([^\n]*\n(?: +\S[^\n]*\n)*)", rendered(program), re.MULTILINE):
        found.setdefault(match.group(1).split()[-1], set()).add(" ".join(match.group(2).split()))
    return found


def options(program, *command):
    return re.findall(r"^  (?:-\w, )?(--[a-z-]+)", run(program, *command, "--help").stdout, re.MULTILINE)


class ManualTest(unittest.TestCase):
    def test_mandoc_finds_nothing_wrong(self):
        for program in PROGRAMS:
            done = run("mandoc", "-T", "lint", "-W", "warning", page_of(program))
            self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_man_finds_nothing_wrong(self):
        for program in PROGRAMS:
            done = run("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page_of(program))
            self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_every_option(self):
        for program in PROGRAMS:
            told = paragraphs(program)
            self.assertGreater(len(options(program)), 5)
            for option in options(program):
                with self.subTest(program=program, option=option):
                    self.assertTrue(any(" " in text for text in told.get(option, {})), "it is there, with a text")

    def test_every_command_with_its_options(self):
        program = PROGRAMS[0]
        page = rendered(program)
        commands = re.findall(r"^  ([a-z]\S*)  +(\S.*)$", run(program, "--help").stdout, re.MULTILINE)
        self.assertGreater(len(commands), 5)
        flat = " ".join(page.split())
        for command, summary in commands:
            with self.subTest(command=command):
                self.assertRegex(page, rf"(?m)^     {command}\b")
                # A line may have been broken behind a hyphen.
                self.assertIn(summary.replace(" ", ""), flat.replace(" ", ""))
                for option in set(options(program, command)) - set(options(program)):
                    self.assertIn(option, paragraphs(program))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
