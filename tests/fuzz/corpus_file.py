#!/usr/bin/env python3
"""corpus_file.py unpack FILE FOLDER, corpus_file.py pack FOLDER FILE: a corpus as one text, so that a change of it can be
read. Each line is an input: printable ASCII as it is, the backslash as \\\\, every other byte as \\n, \\r, \\t or \\xHH."""

import hashlib
import os
import sys


def unpack(file, folder):
    os.makedirs(folder, exist_ok=True)
    with open(file, encoding="ascii") as lines:
        for line in lines:
            content = line.rstrip("\n").encode("ascii").decode("unicode_escape").encode("latin-1")
            with open(os.path.join(folder, hashlib.sha1(content).hexdigest()), "wb") as output:
                output.write(content)


def pack(folder, file):
    inputs = set()
    for name in os.listdir(folder):
        with open(os.path.join(folder, name), "rb") as content:
            inputs.add(content.read())
    with open(file, "w", encoding="ascii") as output:
        for content in sorted(inputs):
            output.write(content.decode("latin-1").encode("unicode_escape").decode("ascii") + "\n")


if __name__ == "__main__":
    {"unpack": unpack, "pack": pack}[sys.argv[1]](*sys.argv[2:])
