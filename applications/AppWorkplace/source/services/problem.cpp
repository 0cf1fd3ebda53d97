#include "problem.h"

#include <QCoreApplication>

#include "step_name.h"

QStringList Problem::lines() const
{
    QStringList lines{QStringLiteral("%1: %2").arg(shownStep(step), what)};
    if (!cause.isEmpty()) {
        lines.append(QCoreApplication::translate("Problem", "  why: %1").arg(cause));
    }
    if (!mend.isEmpty()) {
        lines.append(QCoreApplication::translate("Problem", "  do:  %1").arg(mend));
    }
    return lines;
}
