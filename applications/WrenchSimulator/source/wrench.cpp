#include "wrench.h"

#include "tightening.h"

#include <algorithm>
#include <utility>

namespace {
constexpr double c_usPerSecond = 1e6;
} // namespace

Wrench::Wrench(Settings settings, RandomSource random, NoteSink note)
    : m_settings(std::move(settings)), m_random(random), m_note(std::move(note))
{}

QByteArray Wrench::receive(const QByteArray& frame, qint64 nowUs)
{
    advance(nowUs);
    if (frame == "DT:1" || frame == "DT:0") {
        return setLocked(frame == "DT:1", nowUs);
    }
    if (frame == "DI:C") {
        return m_isLocked ? "OK:1" : "OK:0";
    }
    if (frame == "SC:TL:2") {
        return "OK:2";
    }
    if (frame == "RE:1") {
        m_isReporting = true;
        updateOperator(nowUs);
        return "OK:1";
    }
    if (frame == "IDLE") {
        if (m_running) {
            return "ERR:5";
        }
        m_program = 0;
        return "OK";
    }
    if (frame == "TR:C") {
        return "OK:" + m_settings.programs[m_program].fields;
    }
    if (frame == "TR:N") {
        m_program = (m_program + 1) % m_settings.programs.size();
        return "OK";
    }
    return frame.startsWith("AT") ? QByteArray() : QByteArrayLiteral("ERR:4");
}

QString Wrench::demand(int count, qint64 nowUs)
{
    advance(nowUs);
    if (m_isLocked) {
        return QStringLiteral("wrench %1 is locked: unlock it with DT:0 first")
            .arg(QString::fromLatin1(m_settings.serial));
    }
    if (count > c_maxWaiting - m_demanded) {
        return QStringLiteral("wrench %1 has %2 tightenings waiting already and takes %3: ask for fewer, or later")
            .arg(QString::fromLatin1(m_settings.serial), QString::number(m_demanded), QString::number(c_maxWaiting));
    }
    m_demanded += count;
    startNext(nowUs);
    advance(nowUs);
    return {};
}

void Wrench::powerOff()
{
    m_isLocked = false;
    m_isReporting = false;
    m_program = 0;
    m_demanded = 0;
    m_running.reset();
    m_nextByRateUs.reset();
    m_results.clear();
}

void Wrench::advance(qint64 nowUs)
{
    for (auto dueUs = nextDueUs(); dueUs && *dueUs <= nowUs; dueUs = nextDueUs()) {
        step(*dueUs);
    }
}

std::optional<qint64> Wrench::nextDueUs() const
{
    if (m_running && m_nextByRateUs) {
        return std::min(m_running->endUs, *m_nextByRateUs);
    }
    return m_running ? std::optional<qint64>(m_running->endUs) : m_nextByRateUs;
}

QByteArrayList Wrench::takeResults()
{
    return std::exchange(m_results, {});
}

QByteArray Wrench::setLocked(bool isLocked, qint64 nowUs)
{
    m_isLocked = isLocked;
    if (isLocked && m_demanded > 0) {
        m_note(QStringLiteral("wrench %1 was locked and refuses the %2 tightenings that were waiting")
                   .arg(QString::fromLatin1(m_settings.serial), QString::number(m_demanded)));
        m_demanded = 0;
    }
    updateOperator(nowUs);
    return isLocked ? "OK:1" : "OK:0";
}

void Wrench::updateOperator(qint64 nowUs)
{
    if (m_settings.ratePerSecond <= 0.0 || m_isLocked || !m_isReporting) {
        m_nextByRateUs.reset();
    } else if (!m_nextByRateUs) {
        m_nextByRateUs = nowUs + static_cast<qint64>(c_usPerSecond / m_settings.ratePerSecond);
    }
}

void Wrench::step(qint64 atUs)
{
    if (m_running && m_running->endUs <= atUs) {
        finish();
    }
    if (m_nextByRateUs && *m_nextByRateUs <= atUs) {
        m_demanded = std::min(m_demanded + 1, c_maxWaiting);
        *m_nextByRateUs += static_cast<qint64>(c_usPerSecond / m_settings.ratePerSecond);
    }
    startNext(atUs);
}

void Wrench::startNext(qint64 atUs)
{
    if (m_running || m_demanded == 0) {
        return;
    }
    --m_demanded;
    ++m_readings;
    // Whoever asks for many a second gets them: a tightening is over when the next one is due.
    const auto periodUs =
        m_nextByRateUs ? static_cast<qint64>(c_usPerSecond / m_settings.ratePerSecond) : m_settings.tighteningUs;
    m_running = Running{atUs + std::min(periodUs, m_settings.tighteningUs),
                        tighten(m_settings.programs[m_program], m_readings, m_random).toLine()};
}

void Wrench::finish()
{
    if (m_isReporting) {
        if (m_results.size() == c_maxWaiting) {
            m_note(QStringLiteral("wrench %1 has no link and no room: its oldest result is lost: %2")
                       .arg(QString::fromLatin1(m_settings.serial), QString::fromLatin1(m_results.constFirst())));
            m_results.removeFirst();
        }
        m_results.append(m_running->resultLine);
    }
    m_running.reset();
}
