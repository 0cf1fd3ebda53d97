#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>

#include "p_device_haitor.h"
#include "trace_transcriber.h"

namespace {
constexpr int c_exitUsage = 2;

int refuse(const QString& text)
{
    std::fprintf(stderr, "trace-to-transcript: %s\n", qPrintable(text));
    return c_exitUsage;
}
} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Turns a saved trace of the line into a transcript of the device plugin's commands.\n"
                       "Frames and lines are those of the trace; what the commands publish is recorded from the code\n"
                       "as it is now. Read it before you check it in."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("TRACE"), QStringLiteral("The trace."));
    parser.addOption({QStringLiteral("command"), QStringLiteral("Only the runs of this command; may be repeated."),
                      QStringLiteral("name")});
    parser.addOption({QStringLiteral("serial-id"),
                      QStringLiteral("The wrench that was searched, where the trace does not tell it."),
                      QStringLiteral("number")});
    if (!parser.parse(QCoreApplication::arguments())) {
        return refuse(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return 0;
    }
    if (parser.positionalArguments().size() != 1) {
        return refuse(QStringLiteral("name one trace: tools/trace-to-transcript TRACE [--command NAME ...]"));
    }

    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    PDeviceHaitor plugin(QUuid::createUuid(), nullptr);
    plugin.initPluginCommands();
    TraceTranscriber transcriber(plugin, parser.value(QStringLiteral("serial-id")));
    const QString complaint = transcriber.read(parser.positionalArguments().constFirst());
    if (!complaint.isEmpty()) {
        return refuse(complaint);
    }
    const QStringList lines = transcriber.transcript(parser.values(QStringLiteral("command")));
    if (lines.isEmpty()) {
        const QStringList found = transcriber.commands();
        return refuse(QStringLiteral("%1: no run of that command; the trace has: %2")
                          .arg(parser.positionalArguments().constFirst(),
                               found.isEmpty() ? QStringLiteral("none") : found.join(QStringLiteral(", "))));
    }
    for (const QString& line : lines) {
        std::printf("%s\n", line.toUtf8().constData());
    }
    return 0;
}
