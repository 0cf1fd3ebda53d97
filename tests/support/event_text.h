#pragma once

#include <QString>

#include "recording_order.h"

/// What a command did, as a line of a transcript (see transcript_player.h). An instruction whose map, value types, CR
/// LF, limit or wish for an answer are not as they have to be is described with what is wrong, and equals no line.
QString eventText(const OrderEvent& event);

/// The instruction is the write that starts a scan; the driver's answer to it is what the subscription waits for.
bool isScanWrite(const DInstruction& instruction);
