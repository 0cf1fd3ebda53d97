#include "line_talk.h"

#include <utility>

#include <lib_plugins_management/host/d_host.h>

#include "line_words.h"

namespace {

constexpr int c_mostLines = 1000;
constexpr int c_writeTimeoutMs = 500;
constexpr int c_writeLimitMs = 2000;

const QString c_writeCommand = QStringLiteral("write");

} // namespace

LineTalk::LineTalk(DHost& host, Clock& clock) : m_host(host), m_clock(clock)
{
    connect(&m_observer, &LineObserver::sigWrenchHeard, this, &LineTalk::sigWrenchHeard);
    connect(&m_observer, &LineObserver::sigLineHeard, this, [this](const QByteArray& bytes) { hear(bytes); });
}

LineTalk::~LineTalk()
{
    cancel();
}

void LineTalk::open(DAbstractPlugin& driver)
{
    m_driver = &driver;
    m_observer.start(m_host, driver);
}

void LineTalk::close()
{
    cancel();
    m_observer.stop();
}

void LineTalk::ask(const QString& frame, int limitMs, const Hearer& hearer, const Ended& ended)
{
    cancel();
    m_hearer = hearer;
    m_ended = ended;
    m_timer = m_clock.callAfter(limitMs, [this] {
        m_timer = 0;
        end(End::Limit);
    });
    if (!frame.isEmpty()) {
        write(frame);
    }
}

void LineTalk::write(const QString& frame)
{
    m_hasSpoken = true;
    m_write = m_host.createOrder(*m_driver, c_writeCommand,
                                 {{QStringLiteral("frame"), frame.toLatin1() + QByteArrayLiteral("\r\n")},
                                  {QStringLiteral("timeout"), c_writeTimeoutMs}});
    if (m_write == nullptr) {
        return; // the plugins were looked at before; the limit ends it
    }
    connect(m_write.get(), &DOrder::sigFinished, this, [this] {
        DOrder* const ended = m_write.release();
        ended->deleteLater();
        if (!ended->results().value(QStringLiteral("cmd_success")).toBool()) {
            m_writeError = ended->results().value(QStringLiteral("error")).toString();
            end(End::NotWritten);
        }
    });
    m_write->start(c_writeLimitMs);
}

void LineTalk::cancel()
{
    m_clock.cancel(std::exchange(m_timer, 0));
    m_hearer = {};
    m_ended = {};
    if (DOrder* const write = m_write.release()) { // it may be telling us of its end; the frame itself still goes out
        write->disconnect(this);
        write->deleteLater();
    }
}

void LineTalk::forget()
{
    m_lines.clear();
    m_forgottenBytes = m_observer.heardBytes();
}

void LineTalk::hear(const QByteArray& bytes)
{
    const QString line = QString::fromUtf8(bytes).trimmed();
    if (line.isEmpty()) {
        return;
    }
    m_resultsHeard += line.startsWith(line_words::c_result) ? 1 : 0;
    if (m_lines.size() < c_mostLines) {
        m_lines.append(line);
    }
    if (m_hearer && m_hearer(line)) {
        end(End::Answered);
    }
}

void LineTalk::end(End how)
{
    const Ended ended = m_ended;
    cancel();
    if (ended) {
        ended(how);
    }
}
