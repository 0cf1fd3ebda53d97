#pragma once

#include <QCoreApplication>

#include <memory>
#include <optional>

#include "../services/problem.h"

/// What a window needs of the machine.
namespace window_display {

/// Why no window can be shown on this machine, as far as the environment tells; nothing when it seems that one can.
std::optional<Problem> missing();

/// An application with windows. isHeadless: it needs no display and no graphics card, and shows nothing. A display
/// that does not answer ends the program with a message, status 3.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv, bool isHeadless);

} // namespace window_display
