#!/usr/bin/env python3
"""hardening_test.py READELF COMPILE_COMMANDS FORTIFIED FILE…: the built programs, libraries and plugins are hardened.

FORTIFIED: 1 when the build optimises, so that the checked functions of the C library are wanted, too."""
import json
import subprocess
import sys


def read(*arguments):
    return subprocess.run([readelf, "--wide", *arguments], check=True, capture_output=True, text=True).stdout


def missing_in_file(name):
    header, segments, dynamic = read("-h", name), read("-l", name), read("-d", name)
    program = "INTERP" in segments
    flags = [line for line in dynamic.splitlines() if "FLAGS" in line]
    if "Type:                              DYN" not in header or (program and "PIE" not in " ".join(flags)):
        yield "is loaded at a fixed address (no PIE)"
    if "GNU_RELRO" not in segments:
        yield "keeps its tables writable (no GNU_RELRO)"
    if "BIND_NOW" not in " ".join(flags):
        yield "looks its functions up when they are first called (no BIND_NOW)"
    stack = [line for line in segments.splitlines() if "GNU_STACK" in line]
    if len(stack) != 1 or "E" in stack[0].split()[-2]:
        yield "has a stack that may be executed"
    if "__stack_chk_fail" not in read("--dyn-syms", name):
        yield "does not watch its stack (no stack protector)"


def missing_in_command(arguments):
    wanted = ["-fstack-protector-strong", "-fstack-clash-protection"]
    if fortified:
        wanted.append("-D_FORTIFY_SOURCE=2")
    for option in wanted:
        if option not in arguments:
            yield f"is compiled without {option}"


readelf, commands, fortified, files = sys.argv[1], sys.argv[2], sys.argv[3] == "1", sys.argv[4:]
complaints = [f"{name} {complaint}" for name in files for complaint in missing_in_file(name)]
shipped = 0
for entry in json.load(open(commands, encoding="utf-8")):
    arguments = entry["command"].split()
    made = arguments[arguments.index("-o") + 1]
    if made.startswith(("libraries/", "plugins/", "applications/")):
        shipped += 1
        complaints += [f"{made} {complaint}" for complaint in missing_in_command(arguments)]
if len(files) < 6 or shipped < 100:
    complaints.append(f"only {len(files)} files and {shipped} compilations were looked at")
print("\n".join(complaints) or f"{len(files)} files and {shipped} compilations are hardened")
sys.exit(1 if complaints else 0)
