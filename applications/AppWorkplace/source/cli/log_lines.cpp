#include "log_lines.h"

#include <QElapsedTimer>

#include <cstdio>

#include "console.h"

namespace {

constexpr double c_millisecondsPerSecond = 1000;

QByteArray lineOf(const QMessageLogContext& context, const QString& message)
{
    return QByteArray(context.category) + ": " + Console::visible(message.trimmed()).toUtf8() + '\n';
}

void write(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    static const bool isTraced = qEnvironmentVariableIsSet("WORKPLACE_DEBUG");
    if (type != QtDebugMsg || isTraced) {
        std::fputs(lineOf(context, message).constData(), stderr);
    }
}

void writeAll(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    Q_UNUSED(type)
    const QByteArray line = lineOf(context, message);
    std::fprintf(stderr, "%9.3f %s", log_lines::secondsSinceStart(), line.constData());
}

} // namespace

void log_lines::show(bool isVerbose)
{
    secondsSinceStart();
    qInstallMessageHandler(isVerbose ? &writeAll : &write);
}

double log_lines::secondsSinceStart()
{
    static const QElapsedTimer start = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return double(start.elapsed()) / c_millisecondsPerSecond;
}
