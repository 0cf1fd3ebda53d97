#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include <cstdio>

namespace {

/// The plugins' traces would be measured, too.
void onlyProblems(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type != QtDebugMsg) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    qInstallMessageHandler(&onlyProblems);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
