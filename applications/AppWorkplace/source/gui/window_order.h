#pragma once

#include <QList>
#include <QSize>
#include <QString>

#include "../services/settings.h"

/// What a window is asked to be.
struct WindowOrder
{
    QList<Settings> devices; ///< at least one
    QString page = QStringLiteral("work");
    QString theme; ///< empty: not said
    QSize size = {1280, 800};
    bool connects = false; ///< each device whose wrench is known begins to work at once
    QString screenshot;    ///< the file of a picture, with which it ends; empty: none
    int results = 0;       ///< so many have come on the first device before the picture is made
};
