#pragma once

#include <QJsonObject>
#include <QString>

/// How a disturbed command or session went.
struct CellOutcome
{
    enum class Kind {
        Done,   ///< as if nothing had been
        Failed, ///< and said so
        Mended  ///< the link was lost and is restored
    };

    Kind kind = Kind::Done;
    QString text;    ///< Failed: the step and the cause; else what is not as after an undisturbed run, empty: nothing
    int ms = 0;      ///< Done, Failed: how long it took; Mended: how long the link was away
    int usualMs = 0; ///< how long it takes undisturbed
};

/// What a run leaves behind, to be compared with that of an undisturbed one.
struct TrialTraces
{
    QJsonObject results; ///< the last of each name; of a listening command "eventData" is how many there were
    QString wrench;      ///< the simulator's own word for the state of the wrench, from stateOf()
};

/// The part of the console's answer to "wrenches" that tells what commands have done to the wrench.
QString stateOf(const QString& wrenches);

/// In what the one differs from the other, for people; empty: in nothing that counts.
QString difference(const TrialTraces& disturbed, const TrialTraces& undisturbed);
