#!/usr/bin/env python3
"""make_seeds.py FOLDER: first inputs for the fuzz targets, out of the transcripts, scenarios and configurations
that the repository has. A seed begins with the numbers that its target reads first."""

import os
import re
import sys

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
TRANSCRIPTS = os.path.join(ROOT, "tests", "p_device_haitor", "transcripts")
ESCAPES = {"r": b"\r", "n": b"\n", "t": b"\t", "0": b"\0", "s": b" ", "\\": b"\\"}

# The command of the transcripts, the target, and the numbers before manner and repeats.
TALKS = [
    ("listenEventsData", "listener", b"\1"),
    ("startDetection", "scan", b""),
    ("searchAndConnect", "connection", b"\1"),
    ("sendInitConfig", "configuration", b""),
    ("listProgram", "program_list", b""),
    ("setProgram", "selection", b"\3\5"),
]


def unescaped(text):
    def byte(match):
        return bytes([int(match[1][1:], 16)]) if match[1].startswith("x") else ESCAPES[match[1]]

    pieces = re.split(r"(\\(?:x[0-9A-Fa-f]{2}|[rnt0s\\]))", text)
    found = (re.fullmatch(r"\\(x[0-9A-Fa-f]{2}|[rnt0s\\])", piece) for piece in pieces)
    return b"".join(byte(match) if match else piece.encode() for piece, match in zip(pieces, found))


def read(path):
    with open(path, "rb") as file:
        return file.read()


def talk(path):
    """The bytes of a transcript, each with its direction."""
    for step in read(path).decode().split("\n"):
        word, text = step[:8].strip(), step[8:]
        if word in ("host>", "dongle<", "wrench<", "piece<"):
            yield word[-1], unescaped(text) + (b"" if word == "piece<" else b"\r\n")


def arrivals(path):
    """What came over the line in a transcript."""
    return b"".join(content for direction, content in talk(path) if direction == "<")


def trace(path):
    """The same transcript as a driver's trace would hold it."""
    names = {0x5C: "\\\\", 0x0D: "\\r", 0x0A: "\\n", 0x09: "\\t"}
    text = "# serial trace 1, /dev/ttyUSB0, 2026-01-01 00:00:00.000\n0.000000 ! opened\n"
    for number, (direction, content) in enumerate(talk(path), 1):
        written = "".join(names.get(byte, chr(byte) if 0x20 <= byte < 0x7F else "\\x%02x" % byte) for byte in content)
        text += "%d.%06d %s %s\n" % (number // 50, number % 50 * 20000, direction, written)
    return text.encode()


def console_words():
    """What an operator may say, from the dictionary."""
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "dictionaries", "console.dict")) as words:
        return [unescaped(word.strip()[1:-1]).strip() for word in words if word.startswith('"')]


def files(folder, end):
    return [os.path.join(folder, name) for name in sorted(os.listdir(folder)) if name.endswith(end)]


def main():
    target_folder = sys.argv[1]

    def write(target, name, content):
        folder = os.path.join(target_folder, target)
        os.makedirs(folder, exist_ok=True)
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content)

    everything = b""
    for command, target, numbers in TALKS:
        for path in files(os.path.join(TRANSCRIPTS, command), ".txt"):
            line = arrivals(path)
            everything += line
            for manner in (0, 1, 7):
                write(target, "%s-%d" % (os.path.basename(path), manner), numbers + bytes([manner, 0]) + line)
            write("trace_reader", "%s-%s" % (command, os.path.basename(path)), trace(path))
    for i, line in enumerate(everything.split(b"\r\n")[:200]):
        write("keep_alive", "line-%d" % i, b"OK:\n\0\1\3\x20\0" + line.replace(b"\n", b" ") + b"\n\0OK:1\n")
    for i, frames in enumerate(["ATS|ATH|ATD 020000000001", "DT:1|SC:TL:2|RE:1|DT:0", "IDLE|TR:C|TR:N|TR:C"]):
        scan = b"\3ATS\n\1" + 60 * b"." + b"\n\3ATH\n\1....\n"
        steps = scan + b"\3ATD 020000000001\n\1....\n"
        steps += b"".join(b"\3" + frame.encode() + b"\n" for frame in frames.split("|"))
        write("dongle", "frames-%d" % i, b"\0\1\1" + steps + b"\0tighten 2\n\1..........\n")
        for number, command in enumerate(console_words()):
            write("dongle", "console-%d-%d" % (i, number),
                  bytes([number % 3, 1, 5, 0]) + command + b"\n" + steps + b"\0tighten 2\n\1..........\n\0replug\n\1....\n")
    for path in files(os.path.join(ROOT, "examples", "weather"), ".json"):
        write("scenario_reader", os.path.basename(path), read(path))
    write("configuration_file", "example", read(os.path.join(ROOT, "examples", "configuration.json")))
    write("history_file", "whole", b"\0")
    for page in range(0, 256, 4):
        write("history_file", "page-%d" % page, bytes([0, page, 0, 4]) + b"\xff\xff\xff\xff" + bytes([page, 9, 1, 0]))
    for i in range(16):
        calls = [b"\0\1", b"\6\0\1\7\1\1\5", b"\1\1", b"\2" + b"7\n", b"\4", b"\5\2", b"\x08\1\2\2\5", b"\x09", b"\x0a\5"]
        write("panel_backend", "calls-%d" % i, b"".join(calls[i % len(calls):] + calls[:i % len(calls)]))


if __name__ == "__main__":
    main()
