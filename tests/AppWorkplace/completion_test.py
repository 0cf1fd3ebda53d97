"""Real shells complete command lines of app_workplace with the scripts that it makes.

Usage: completion_test.py PROGRAM BASH_SCRIPT ZSH_FOLDER
"""

import json
import os
import pty
import re
import select
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM, BASH_SCRIPT, ZSH_FOLDER = sys.argv[1:4]
LIMIT_S = 30

# Calls the completion as bash does: the words as bash takes them apart.
BASH_CALL = r"""
source "$1"; shift
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
_app_workplace
printf '%s\n' "${COMPREPLY[@]}"
"""


def bash_words(line):
    """A word for each part that bash sees: "=" stands alone."""
    words = []
    for word in line.split(" "):
        words.extend(part for part in re.split("(=)", word) if part or word == "")
    return words + ([""] if line.endswith("=") else [])


def bash(line):
    done = subprocess.run(["bash", "--norc", "-c", BASH_CALL, "bash", BASH_SCRIPT, *bash_words(line)],
                          capture_output=True, text=True, timeout=LIMIT_S, check=False)
    if done.stderr:
        raise AssertionError(done.stderr)
    return set(done.stdout.split())


def program(*arguments):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, timeout=LIMIT_S, check=False).stdout


class Facts:
    """What there is to complete, as the program's own help and list of commands tell it."""
    commands = re.findall(r"^  ([a-z]\S*)  ", program("--help"), re.MULTILINE)
    options = set(re.findall(r"^  (--[a-z-]+)", program("--help"), re.MULTILINE))
    plugin_commands = [json.loads(line) for line in program("commands", "--json").splitlines()]


class BashTest(unittest.TestCase):
    def test_commands(self):
        self.assertGreater(len(Facts.commands), 5)
        self.assertEqual(bash("app_workplace "), set(Facts.commands))
        self.assertEqual(bash("app_workplace --json ses"), {"session"})

    def test_options_of_every_command(self):
        self.assertEqual(bash("app_workplace --"), Facts.options)
        for command in Facts.commands:
            with self.subTest(command=command):
                told = set(re.findall(r"^  (--[a-z-]+)", program(command, "--help"), re.MULTILINE))
                self.assertEqual(bash(f"app_workplace {command} -"), told)

    def test_options_behind_an_argument(self):
        self.assertIn("--connect", bash("app_workplace run setLock lock=true --c"))

    def test_commands_of_plugins(self):
        names = {each["command"]["name"] for each in Facts.plugin_commands}
        offered = bash("app_workplace run ")
        self.assertEqual({name.split("/")[-1] for name in offered}, names)
        self.assertIn("driver/write", offered)
        self.assertEqual(bash("app_workplace commands setL"), {"setLock"})

    def test_parameters_of_every_command_of_a_plugin(self):
        for each in Facts.plugin_commands:
            prefix = "driver/" if "Driver" in each["plugin"] else ""
            name = each["command"]["name"]
            with self.subTest(command=name):
                declared = {parameter["name"] + "=" for parameter in each["command"]["parameters"]}
                self.assertEqual(bash(f"app_workplace run {prefix}{name} "), declared)

    def test_values(self):
        self.assertEqual(bash("app_workplace run setLock lock="), {"true", "false"})
        self.assertEqual(bash("app_workplace run setLock lock=t"), {"true"})
        self.assertEqual(bash("app_workplace --language "), {"en", "de", "fr"})
        self.assertEqual(bash("app_workplace --language=d"), {"de"})
        self.assertIn("simulated", bash("app_workplace session --port "))
        self.assertEqual(bash("app_workplace session --count "), set())
        self.assertEqual(bash("app_workplace completion "), {"bash", "zsh"})

    def test_values_of_options_are_no_commands(self):
        self.assertEqual(bash("app_workplace --serial-id run --count 3 ses"), {"session"})

    def test_files_and_folders(self):
        with tempfile.TemporaryDirectory() as folder:
            os.mkdir(os.path.join(folder, "inner"))
            with open(os.path.join(folder, "own.json"), "w", encoding="utf-8"):
                pass
            inner, file = os.path.join(folder, "inner"), os.path.join(folder, "own.json")
            self.assertEqual(bash(f"app_workplace --config {folder}/"), {inner, file})
            self.assertEqual(bash(f"app_workplace --data {folder}/"), {inner})


class Terminal:
    """An interactive shell in a terminal of its own."""

    def __init__(self, *command):
        self.output = ""
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.execvpe(command[0], command, {**os.environ, "TERM": "dumb", "PS1": "", "PROMPT": ""})

    def type(self, text):
        os.write(self.terminal, text.encode())

    def wait_for(self, pattern):
        limit = time.monotonic() + LIMIT_S
        while not re.search(pattern, self.output):
            left = limit - time.monotonic()
            if left <= 0 or not select.select([self.terminal], [], [], left)[0]:
                raise AssertionError(f"{pattern!r} did not come; there is {self.output!r}")
            self.output += os.read(self.terminal, 4096).decode(errors="replace")

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.pid, 0)


class TerminalTest(unittest.TestCase):
    """The line as it is in the end: it is echoed by a command that prints its arguments between brackets."""

    def complete(self, terminal, typed, expected):
        terminal.type(typed + "\t")
        terminal.type("\r")
        terminal.wait_for(re.escape(f"[{expected}]"))

    def test_bash(self):
        bash_terminal = Terminal("bash", "--norc", "--noprofile", "-i")
        try:
            bash_terminal.type(f"source {BASH_SCRIPT}; app_workplace() {{ printf '[%s]' \"$*\"; }}; echo rea''dy\r")
            bash_terminal.wait_for("ready")
            self.complete(bash_terminal, "app_workplace sess", "session")
            self.complete(bash_terminal, "app_workplace run setLock lo", "run setLock lock=")
            self.complete(bash_terminal, "app_workplace run setLock lock=tr", "run setLock lock=true")
            self.complete(bash_terminal, "app_workplace session --prog", "session --program")
        finally:
            bash_terminal.type("exit\r")
            bash_terminal.close()

    def test_zsh(self):
        zsh_terminal = Terminal("zsh", "-f", "-i")
        try:
            zsh_terminal.type(f"fpath=({ZSH_FOLDER} $fpath); autoload -Uz compinit; compinit -u -D; "
                              "app_workplace() { printf '[%s]' \"$*\" }; echo rea''dy\r")
            zsh_terminal.wait_for("ready")
            self.complete(zsh_terminal, "app_workplace sess", "session")
            self.complete(zsh_terminal, "app_workplace run setLo", "run setLock")
            self.complete(zsh_terminal, "app_workplace run setLock lo", "run setLock lock=")
            self.complete(zsh_terminal, "app_workplace run setLock lock=tr", "run setLock lock=true")
            self.complete(zsh_terminal, "app_workplace session --prog", "session --program")
            self.complete(zsh_terminal, "app_workplace --language=d", "--language=de")
            self.complete(zsh_terminal, "app_workplace run driver/wr", "run driver/write")
        finally:
            zsh_terminal.type("exit\r")
            zsh_terminal.close()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
