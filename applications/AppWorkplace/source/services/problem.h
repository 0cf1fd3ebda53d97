#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

/// What went wrong, told so that somebody can do something about it.
struct Problem
{
    /// Whose business it is, and with it the program's exit status.
    enum class Kind {
        Device = 1, ///< the device said no or did not answer
        Usage = 2,  ///< wrong command line
        SetUp = 3   ///< port, plugin, configuration
    };

    Kind kind = Kind::Device;
    QString step;  ///< what was being done: "connect"; for people see shownStep()
    QString what;  ///< the thing and what is wrong with it
    QString cause; ///< why, in the device's own words where there are any; may be empty
    QString mend;  ///< what to do; may be empty

    int exitStatus() const { return int(kind); }

    /// For people: what, and on lines of their own why and what to do.
    QStringList lines() const;
};

Q_DECLARE_METATYPE(Problem)
