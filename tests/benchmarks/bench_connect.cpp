// The connect exchange with a dongle that answers without delay: "searchAndConnect" through host, plugin and driver,
// beside a bare script that writes and awaits the same frames.

#include <benchmark/benchmark.h>

// Benchmarks are registered by static objects.
// clazy:excludeall=non-pod-global-static

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include "workplace_fixture.h"

namespace {

class Dongle
{
public:
    Dongle()
    {
        m_process.start(QStringLiteral(SIMULATOR),
                        {QStringLiteral("--exit-with-parent"), QStringLiteral("--link-delay"), QStringLiteral("0"),
                         QStringLiteral("--answer-delay"), QStringLiteral("0")});
        if (!m_process.waitForReadyRead()) {
            qFatal("the simulator does not start");
        }
        m_port = m_process.readLine().trimmed().mid(int(qstrlen("ready ")));
    }
    ~Dongle()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    QString port() const { return QString::fromLocal8Bit(m_port); }

private:
    QProcess m_process;
    QByteArray m_port;
};

class Script
{
public:
    explicit Script(const QString& port)
        : m_port(open(port.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
    {
        termios settings{};
        tcgetattr(m_port, &settings);
        cfmakeraw(&settings);
        tcsetattr(m_port, TCSANOW, &settings);
    }
    ~Script() { close(m_port); }

    void say(const QByteArray& frame)
    {
        if (write(m_port, frame.constData(), std::size_t(frame.size())) != frame.size()) {
            qFatal("the port takes no frame");
        }
    }
    /// The first line that begins so.
    QByteArray await(const QByteArray& prefix)
    {
        for (;;) {
            for (int end = m_received.indexOf("\r\n"); end >= 0; end = m_received.indexOf("\r\n")) {
                QByteArray line = m_received.left(end);
                m_received.remove(0, end + 2);
                if (line.startsWith(prefix)) {
                    return line;
                }
            }
            pollfd watched{m_port, POLLIN, 0};
            char buffer[4096];
            poll(&watched, 1, -1);
            const ssize_t size = read(m_port, buffer, sizeof(buffer));
            m_received.append(buffer, int(std::max<ssize_t>(0, size)));
        }
    }

private:
    int m_port;
    QByteArray m_received;
};

void bareScript(benchmark::State& state)
{
    const Dongle dongle;
    Script script(dongle.port());
    for (auto _ : state) {
        script.say("ATS\r\n");
        QByteArray address = script.await("RESP").split(' ').at(1);
        script.say("ATH\r\n");
        script.await("ATH");
        script.say("ATD " + address.replace(":", "") + "\r\n");
        script.await("DATA");
        script.say("ATH\r\n");
    }
}

void searchAndConnect(benchmark::State& state)
{
    const Dongle dongle;
    WorkplaceFixture workplace(dongle.port());
    for (auto _ : state) {
        const auto order = workplace.host.createOrder(*workplace.device, QStringLiteral("searchAndConnect"),
                                                      {{QStringLiteral("serialId"), QStringLiteral("2210")}});
        QEventLoop loop;
        QObject::connect(order.get(), &DOrder::sigFinished, &loop, &QEventLoop::quit);
        order->start();
        loop.exec();
        if (!order->results().value(QStringLiteral("cmd_success")).toBool()) {
            state.SkipWithError("the wrench was not connected");
            break;
        }
    }
}

BENCHMARK(bareScript)->Name("connect/bare_script")->UseRealTime();
BENCHMARK(searchAndConnect)->Name("connect/searchAndConnect")->UseRealTime();

} // namespace
