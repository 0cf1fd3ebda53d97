#include "fuzz_check.h"
#include "fuzz_input.h"
#include "fuzz_targets.h"
#include "simulated_talk.h"

namespace {

constexpr int c_stepMs = 20;

/// One of the two talks: the bytes come whole, or in pieces of that manner.
void send(SimulatedTalk& talk, const QByteArray& bytes, int manner)
{
    const QVector<QByteArray> pieces = piecesOf(bytes, manner);
    for (const QByteArray& piece : pieces) {
        if (talk.isPluggedIn) {
            talk.simulation.receive(piece, talk.nowUs);
        }
    }
}

/// The dongle and the wrench have a small vocabulary. Faults may say anything.
bool isKnown(const QByteArray& line)
{
    static const QByteArrayList starts{"RESP ", "ATD ", "ATH", "DATA", "ERR:", "OK", "RE:F:"};
    for (const QByteArray& start : starts) {
        if (line.startsWith(start)) {
            return true;
        }
    }
    return false;
}

} // namespace

/// The simulator's dongle with its console and its faults, hearing anything: bytes in pieces make the same talk as
/// whole ones, whatever waits is bounded, and without a fault only words of the line are said.
void fuzz::dongle(const QByteArray& bytes)
{
    FuzzInput input(bytes);
    Scenario scenario;
    scenario.wrenches = {Scenario::defaultWrench(1), Scenario::defaultWrench(2)};
    scenario.dongle.mode = Dongle::Mode(input.number(0, 2));
    scenario.seed = quint32(input.number(0, 255));
    const int manner = input.number(0, c_manners);
    SimulatedTalk whole(scenario);
    SimulatedTalk inPieces(scenario);
    bool hasFault = false;
    constexpr int c_mostSteps = 200;
    for (int step = 0; step < c_mostSteps && !input.isAtEnd(); ++step) {
        const int operation = input.number(0, 5);
        const QByteArray text = input.until('\n');
        const int ms = c_stepMs * text.size();
        for (SimulatedTalk* talk : {&whole, &inPieces}) {
            const int ownManner = talk == &whole ? 0 : manner;
            if (operation == 0) {
                const QString answer = talk->simulation.command(QString::fromUtf8(text), talk->nowUs);
                FUZZ_CHECK(answer.startsWith(QLatin1String("ok")) || answer.startsWith(QLatin1String("error")));
            } else if (operation == 1) {
                talk->pass(ms, c_stepMs);
            } else if (operation == 2) {
                send(*talk, text, ownManner); // without an end
            } else {
                send(*talk, text + "\r\n", ownManner);
            }
        }
        hasFault = hasFault || (operation == 0 && text.contains("fault"));
    }
    whole.pass(1000, c_stepMs);
    inPieces.pass(1000, c_stepMs);
    FUZZ_CHECK(whole.bytes() == inPieces.bytes());
    FUZZ_CHECK(whole.log == inPieces.log);
    if (!hasFault) {
        const QStringList lines = whole.takeLines();
        for (const QString& line : lines) {
            FUZZ_CHECK(isKnown(line.toLatin1()));
        }
    }
}
