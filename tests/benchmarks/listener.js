// listener.js LINE: nanoseconds that a line costs in Node, made a record of nine entries; chunks of 4 KiB.
"use strict";

const CHUNK = 4096, WARM_UP = 500, CHUNKS = 5000;
const line = process.argv[2] + "\r\n";
const stream = Buffer.from(line.repeat(CHUNK));
let rest = "", lines = 0, offset = 0, begin = 0n, kept = null;
for (let number = 0; number < WARM_UP + CHUNKS; ++number) {
    if (number === WARM_UP) {
        begin = process.hrtime.bigint();
        lines = 0;
    }
    rest += stream.toString("utf8", offset, offset + CHUNK);
    offset = (offset + CHUNK) % stream.length;
    const whole = rest.split("\r\n");
    rest = whole.pop();
    for (const each of whole) {
        const text = each.trim();
        if (text.startsWith("RE:F:")) {
            const fields = text.slice(5).split(",");
            kept = {convertedTorque: fields[0], direction: fields[1], torqueStatus: fields[2], snugTorqueAngle: fields[3],
                    angleStatus: fields[4], readingNumber: fields[5], readingStatus: fields[6], eventCountNo: number,
                    progId: 3};
            ++lines;
        }
    }
}
console.log(Number(process.hrtime.bigint() - begin) / lines);
if (kept === null) {
    process.exitCode = 1;
}
