#include "step_name.h"

#include <QCoreApplication>

namespace {

// What the translators are to know; a step that is not here is shown as it is.
[[maybe_unused]] constexpr const char* c_steps[] = {
    QT_TRANSLATE_NOOP("Step", "open"),         QT_TRANSLATE_NOOP("Step", "connect"),
    QT_TRANSLATE_NOOP("Step", "configure"),    QT_TRANSLATE_NOOP("Step", "programs"),
    QT_TRANSLATE_NOOP("Step", "select"),       QT_TRANSLATE_NOOP("Step", "unlock"),
    QT_TRANSLATE_NOOP("Step", "listen"),       QT_TRANSLATE_NOOP("Step", "link"),
    QT_TRANSLATE_NOOP("Step", "session"),      QT_TRANSLATE_NOOP("Step", "scan"),
    QT_TRANSLATE_NOOP("Step", "run"),          QT_TRANSLATE_NOOP("Step", "commands"),
    QT_TRANSLATE_NOOP("Step", "command line"), QT_TRANSLATE_NOOP("Step", "configuration"),
    QT_TRANSLATE_NOOP("Step", "history"),      QT_TRANSLATE_NOOP("Step", "export"),
    QT_TRANSLATE_NOOP("Step", "plugins"),      QT_TRANSLATE_NOOP("Step", "port"),
    QT_TRANSLATE_NOOP("Step", "line"),         QT_TRANSLATE_NOOP("Step", "dongle"),
    QT_TRANSLATE_NOOP("Step", "range"),        QT_TRANSLATE_NOOP("Step", "wrench"),
    QT_TRANSLATE_NOOP("Step", "results"),      QT_TRANSLATE_NOOP("Step", "lock"),
};

[[maybe_unused]] constexpr const char* c_lineStates[] = {
    QT_TRANSLATE_NOOP("LineState", "open"),    QT_TRANSLATE_NOOP("LineState", "closed"),
    QT_TRANSLATE_NOOP("LineState", "lost"),    QT_TRANSLATE_NOOP("LineState", "no answer"),
    QT_TRANSLATE_NOOP("LineState", "no link"),
};

} // namespace

QString shownStep(const QString& step)
{
    return QCoreApplication::translate("Step", step.toUtf8().constData());
}

QString shownLineState(const QString& state)
{
    return QCoreApplication::translate("LineState", state.toUtf8().constData());
}
