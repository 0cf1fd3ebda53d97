#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QVariant>

/// One tightening result with what was known when it came.
struct TighteningResult
{
    QVariantMap eventData; ///< the record as the device plugin published it, nothing added or changed
    QByteArray rawLine;    ///< the line that it was made from, without its line end; empty: none was found
    QDateTime arrival;     ///< when it came to the session, UTC, to the millisecond
    int program = 0;       ///< the one that the wrench stood at; 0: not known. The record names what was asked for last
    QVariantMap preset;    ///< of that program, as the session has read it; empty: not known
    bool isFirstAfterReconnection = false; ///< the link was away since the result before, or since the start
};
