#pragma once

#include <QString>

/// The name of a step ("connect") in the language in use. Programs are told the step's own name.
QString shownStep(const QString& step);

/// The same for a state of the line ("lost").
QString shownLineState(const QString& state);
