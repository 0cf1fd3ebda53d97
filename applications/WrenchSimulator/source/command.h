#pragma once

#include "fault.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// What an operator can ask of the simulator, on the console or by the time line of a scenario.
struct Command
{
    enum class Kind {
        Tighten,
        Wrenches,
        Range,
        Power,
        SetFault,
        RemoveFault,
        ListFaults,
        ClearFaults,
        LoseLink,
        Unplug,
        Replug,
        Quit,
        Help
    };

    Kind kind = Kind::Help;
    int count = 1;     ///< Tighten: how many
    int backMs = 0;    ///< Unplug: ms until the line is back; 0: not by itself
    QByteArray serial; ///< Tighten, Range, Power: which wrench; Tighten: empty: the linked one, else the first
    bool isOn = false; ///< Range, Power
    Fault fault;       ///< SetFault
    QString name;      ///< RemoveFault: as of Fault::isCalled()

    /// It only tells something, and changes nothing.
    bool isQuestion() const;

    /// Otherwise nothing, and the error says how to write it.
    static std::optional<Command> fromText(const QString& text, QString* error);

    /// All of them in one line.
    static QString help();
};
