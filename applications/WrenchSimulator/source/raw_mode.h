#pragma once

/// Makes an open terminal pass every byte as it is, at 115200 baud with 8 data bits, no parity and one stop bit.
/// False on error, with errno set.
bool makeRaw(int descriptor);
