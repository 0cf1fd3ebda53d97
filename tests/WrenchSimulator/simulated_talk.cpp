#include "simulated_talk.h"

#include <algorithm>

namespace {
constexpr qint64 c_usPerMs = 1000;
}

SimulatedTalk::SimulatedTalk(const Scenario& scenario)
    : simulation(scenario, *this, [this](const QString& text) { notes.append(text); })
{
    simulation.advance(0);
}

void SimulatedTalk::pass(int ms, int stepMs)
{
    const qint64 endUs = nowUs + ms * c_usPerMs;
    while (nowUs < endUs) {
        nowUs = std::min(nowUs + stepMs * c_usPerMs, endUs);
        simulation.advance(nowUs);
    }
}

QByteArray SimulatedTalk::bytes() const
{
    return m_bytes;
}

QStringList SimulatedTalk::takeLines()
{
    const int end = m_bytes.lastIndexOf("\r\n") + 2;
    const QByteArray lines = end > m_taken ? m_bytes.mid(m_taken, end - m_taken) : QByteArray();
    m_taken += lines.size();
    return QString::fromLatin1(lines).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
}

QString SimulatedTalk::open()
{
    isPluggedIn = true;
    log.append(QStringLiteral("! open"));
    return {};
}

void SimulatedTalk::close()
{
    isPluggedIn = false;
    log.append(QStringLiteral("! closed"));
}

void SimulatedTalk::write(const QByteArray& chunk, qint64 atUs)
{
    m_bytes += chunk;
    log.append(QString::number(atUs) + QStringLiteral(": ") + QString::fromLatin1(chunk));
}
