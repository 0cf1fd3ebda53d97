#pragma once

#include <QString>

#include <functional>

/// Where a state machine says what people should know and the line does not carry: dropped bytes, refused tightenings.
/// One call is one line of text without a line end.
using NoteSink = std::function<void(const QString& text)>;
