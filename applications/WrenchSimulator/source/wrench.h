#pragma once

#include "note.h"
#include "program.h"
#include "random_source.h"

#include <QByteArray>
#include <QByteArrayList>

#include <optional>
#include <vector>

/// A torque wrench at the far end of the radio link: frames in, an answer and results out, under a time that is passed
/// in.
///
///     DT:1, DT:0    OK:1, OK:0    locked, unlocked
///     DI:C          OK:1 or OK:0  the lock as it is
///     SC:TL:2       OK:2
///     RE:1          OK:1          results are reported from now on
///     IDLE          OK            and the first program is current; ERR:5 while a tightening is running
///     TR:C          OK:UNT0,...   the current program's fields
///     TR:N          OK            and the next program is current, the first one after the last
///     else          ERR:4         but nothing to "AT...", which is for a dongle
///
/// Times are microseconds of any clock that never goes back.
class Wrench
{
public:
    /// Demanded tightenings that may wait, and results that are kept while there is no link.
    static constexpr int c_maxWaiting = 10000;

    struct Settings
    {
        QByteArray serial;
        QByteArray model;
        QByteArray mac; ///< AA:BB:CC:DD:EE:FF
        int rssiDbm = -60;
        std::vector<Program> programs; ///< at least one
        qint64 tighteningUs = 0;       ///< how long one takes
        double ratePerSecond = 0.0;    ///< > 0: tightens by itself while unlocked and reporting
    };

    Wrench(Settings settings, RandomSource random, NoteSink note);

    const Settings& settings() const { return m_settings; }
    bool isLocked() const { return m_isLocked; }
    bool isReporting() const { return m_isReporting; }
    int programNumber() const { return static_cast<int>(m_program) + 1; } ///< the current one, from 1
    int readings() const { return m_readings; }                           ///< tightenings begun so far

    /// The answer to a frame (without its line end); empty: none.
    QByteArray receive(const QByteArray& frame, qint64 nowUs);

    /// Demands count >= 1 tightenings, one after the other. Returns why the wrench refuses, empty when it does not.
    QString demand(int count, qint64 nowUs);

    /// All but the programs and the number of readings is forgotten, a tightening under way included.
    void powerOff();

    /// Lets the time pass, up to and including nowUs.
    void advance(qint64 nowUs);

    /// When advance() has something to do again, if ever without a frame or a demand.
    std::optional<qint64> nextDueUs() const;

    /// The results to report, oldest first. They wait here for an open link; c_maxWaiting at most, the oldest is
    /// dropped.
    QByteArrayList takeResults();

private:
    struct Running
    {
        qint64 endUs;
        QByteArray resultLine;
    };

    QByteArray setLocked(bool isLocked, qint64 nowUs);
    void updateOperator(qint64 nowUs);
    void step(qint64 atUs);
    void startNext(qint64 atUs);
    void finish();

    Settings m_settings;
    RandomSource m_random;
    NoteSink m_note;

    bool m_isLocked = false;
    bool m_isReporting = false;
    size_t m_program = 0;
    int m_readings = 0;

    int m_demanded = 0; ///< waiting behind the running one
    std::optional<Running> m_running;
    std::optional<qint64> m_nextByRateUs;
    QByteArrayList m_results;
};
