#!/usr/bin/env python3
"""listener.py LINE: nanoseconds that a line costs in Python, made a record of nine entries; chunks of 4 KiB."""

import sys
import time

CHUNK, CHUNKS = 4096, 500
KEYS = ("convertedTorque", "direction", "torqueStatus", "snugTorqueAngle", "angleStatus", "readingNumber", "readingStatus")


def main():
    line = sys.argv[1].encode() + b"\r\n"
    stream = line * CHUNK
    rest, lines, offset = b"", 0, 0
    begin = time.perf_counter_ns()
    for number in range(CHUNKS):
        rest += stream[offset:offset + CHUNK]
        offset = (offset + CHUNK) % len(stream)
        *whole, rest = rest.split(b"\r\n")
        for each in whole:
            text = each.decode().strip()
            if text.startswith("RE:F:"):
                record = dict(zip(KEYS, text[5:].split(",")))
                record["eventCountNo"], record["progId"] = number, 3
                lines += 1
    print((time.perf_counter_ns() - begin) / lines)


main()
