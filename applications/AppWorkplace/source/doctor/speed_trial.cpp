#include "speed_trial.h"

#include <iterator>
#include <utility>

#include <lib_plugins_management/host/d_host.h>

#include "doctor_bench.h"
#include "line_words.h"

namespace {

constexpr int c_speeds[] = {9600, 19200, 38400, 57600, 115200, 230400};
constexpr int c_defaultSpeed = 115200; // of the driver, where none is configured
constexpr int c_answerLimitMs = 500;
constexpr int c_closeLimitMs = 2000;
const QString c_speedKey = QStringLiteral("baudRate");

} // namespace

SpeedTrial::SpeedTrial(DoctorBench& bench) : m_bench(bench), m_configured(bench.driver->getInPluginConfig(c_speedKey))
{}

SpeedTrial::~SpeedTrial()
{
    stop();
}

QString SpeedTrial::speeds()
{
    QStringList texts;
    for (const int speed : c_speeds) {
        texts.append(QString::number(speed));
    }
    return texts.join(QStringLiteral(", "));
}

void SpeedTrial::start()
{
    m_isRunning = true;
    tryNext();
}

void SpeedTrial::stop()
{
    if (std::exchange(m_isRunning, false)) {
        m_bench.talk.cancel();
        m_bench.driver->setInPluginConfig(c_speedKey, m_configured);
    }
}

void SpeedTrial::tryNext()
{
    while (m_tried < int(std::size(c_speeds))) {
        const int speed = c_speeds[m_tried++];
        if (speed != m_configured.toInt(c_defaultSpeed)) {
            m_lines.clear();
            m_found = speed;
            setSpeed(speed, &SpeedTrial::call);
            return;
        }
    }
    m_found = 0;
    m_lines.clear();
    setSpeed(m_configured, &SpeedTrial::tellEnd);
}

/// The driver looks at its configuration when it opens the port, which the next frame makes it do.
void SpeedTrial::setSpeed(const QJsonValue& baud, void (SpeedTrial::*then)())
{
    m_closing = m_bench.host.createOrder(*m_bench.driver, QStringLiteral("closeConnection"));
    connect(m_closing.get(), &DOrder::sigFinished, this, [this, baud, then] {
        m_closing.release()->deleteLater();
        if (m_isRunning) {
            m_bench.talk.forgetPartialLine();
            m_bench.driver->setInPluginConfig(c_speedKey, baud);
            (this->*then)();
        }
    });
    m_closing->start(c_closeLimitMs);
}

void SpeedTrial::call()
{
    m_bench.talk.forget();
    // A line end before: what the dongle has heard at the wrong speed is no beginning of this frame.
    m_bench.talk.ask(QStringLiteral("\r\n") + line_words::c_hangUp, c_answerLimitMs, &line_words::isReadable,
                     [this](LineTalk::End end) {
                         if (end == LineTalk::End::Answered) {
                             m_lines = m_bench.talk.lines();
                             setSpeed(m_configured, &SpeedTrial::tellEnd);
                         } else {
                             tryNext(); // also when the port does not have that speed
                         }
                     });
}

void SpeedTrial::tellEnd()
{
    m_isRunning = false;
    Q_EMIT sigEnded(m_found, m_lines);
}
