#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

#include "services/session_order.h"

/// What one session of the soak meets, drawn from a seed alone: the same seed, the same weather, on every machine.
struct Weather
{
    /// Something that happens at its time, as the simulator's console takes it.
    struct Event
    {
        int atMs = 0;
        QString command;
    };

    explicit Weather(quint32 seed);

    /// For people, and to try it by hand with wrench_simulator.
    QString text() const;

    QStringList options; ///< of wrench_simulator
    QVector<Event> events;
    SessionOrder order;
    std::optional<int> interruptMs; ///< when somebody presses Ctrl-C
};
