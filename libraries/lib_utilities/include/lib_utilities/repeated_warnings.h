#pragma once

#include <QLoggingCategory>
#include <QMap>
#include <QString>

#include <lib_utilities/clock.h>
#include <lib_utilities/export.h>

/// Warnings of one thing, each cause once: a cause that comes again and again (an adapter that flaps, a device that
/// takes no frame) does not flood the log. The first message of a cause is written at once. What follows within
/// c_pauseMs is only counted; when that time is over the newest text is written with the count, "… (312 × in 10 s)",
/// and the next c_pauseMs begin. Memory: one entry for each cause of the last c_pauseMs. One thread.
class LIB_UTILITIES_EXPORT RepeatedWarnings
{
public:
    static constexpr int c_pauseMs = 10000;

    /// The clock outlives it. category: as Q_DECLARE_LOGGING_CATEGORY makes them.
    RepeatedWarnings(Clock& clock, const QLoggingCategory& (*category)());
    /// Tells what has only been counted.
    ~RepeatedWarnings();

    /// cause: messages of the same one are the same, whatever their texts.
    void warn(const QString& cause, const QString& text);
    /// The text is the cause.
    void warn(const QString& text) { warn(text, text); }

private:
    Q_DISABLE_COPY(RepeatedWarnings)

    struct Cause
    {
        qint64 toldUs = 0;
        int heldBack = 0;
        QString newest;
        Clock::TimerId timer = 0; ///< 0: nothing is held back
    };

    void write(const QString& text) const;
    void tellHeldBack(const QString& cause);
    void forgetOld();

    Clock& m_clock;
    const QLoggingCategory& (*const m_category)();
    QMap<QString, Cause> m_causes;
};
