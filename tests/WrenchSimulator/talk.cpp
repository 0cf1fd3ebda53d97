#include "talk.h"

#include <QStringList>
#include <QTest>

namespace {
constexpr qint64 c_usPerMs = 1000;

std::vector<Wrench> makeWrenches(const TalkSettings& settings, const NoteSink& note)
{
    std::vector<Wrench> wrenches;
    for (int i = 1; i <= 2; ++i) {
        Wrench::Settings wrench = settings.wrench;
        wrench.serial = QByteArray::number(2209 + i);
        wrench.mac = "02:00:00:00:00:0" + QByteArray::number(i);
        wrenches.emplace_back(wrench, RandomSource(settings.seed).stream(wrench.mac), note);
    }
    return wrenches;
}

Dongle makeDongle(const TalkSettings& settings, QStringList& notes)
{
    const NoteSink note = [&notes](const QString& text) { notes.append(text); };
    return {settings.dongle, makeWrenches(settings, note), RandomSource(settings.seed), note};
}

bool fits(const QByteArray& line, const QByteArray& expected)
{
    return expected.endsWith('*') ? line.startsWith(expected.chopped(1)) : line == expected;
}
} // namespace

TalkSettings::TalkSettings()
{
    dongle.scanPeriodUs = 1000 * c_usPerMs;
    wrench.model = "TW60";
    wrench.programs = Program::examples(2);
    wrench.tighteningUs = 100 * c_usPerMs;
}

Talk::Talk(const TalkSettings& settings) : dongle(makeDongle(settings, notes)) {}

QString Talk::play(const char* script)
{
    const QList<QByteArray> steps = QByteArray(script).split('\n');
    for (const QByteArray& untrimmed : steps) {
        const QByteArray step = untrimmed.trimmed();
        const QByteArray text = step.mid(2);
        m_output += takeOutput();
        if (step.startsWith("< ")) {
            const int end = m_output.indexOf("\r\n");
            const QByteArray line = m_output.left(end);
            if (end < 0 || !fits(line, text)) {
                return QStringLiteral("%1, but there came: %2")
                    .arg(QString::fromLatin1(step), QString::fromLatin1(m_output));
            }
            m_output.remove(0, end + 2);
            continue;
        }
        if (!m_output.isEmpty()) {
            return QStringLiteral("before \"%1\" nobody expected: %2")
                .arg(QString::fromLatin1(step), QString::fromLatin1(m_output));
        }
        if (step.startsWith("> ")) {
            send(text + "\r\n");
        } else if (step.startsWith("+ ")) {
            pass(text.toInt());
        } else if (!step.isEmpty()) {
            return QStringLiteral("not a line of a talk: %1").arg(QString::fromLatin1(step));
        }
    }
    m_output += takeOutput();
    return m_output.isEmpty() ? QString()
                              : QStringLiteral("at the end nobody expected: ") + QString::fromLatin1(m_output);
}

QByteArray Talk::takeOutput()
{
    QByteArray result = std::exchange(m_output, {});
    while (const std::optional<QByteArray> chunk = dongle.output().takeChunk(nowUs)) {
        result += *chunk;
    }
    return result;
}

QStringList Talk::takeTimedChunks(int forMs)
{
    QStringList result;
    for (int ms = 0; ms <= forMs; ++ms) {
        while (const std::optional<QByteArray> chunk = dongle.output().takeChunk(nowUs)) {
            result.append(QString::number(ms) + QStringLiteral(": ") +
                          QString::fromLatin1(*chunk)
                              .replace(QLatin1Char('\r'), QLatin1Char('.'))
                              .replace(QLatin1Char('\n'), QLatin1Char('.')));
        }
        if (ms < forMs) {
            nowUs += c_usPerMs;
            dongle.advance(nowUs);
        }
    }
    return result;
}

void Talk::pass(int ms)
{
    for (int i = 0; i < ms; ++i) {
        nowUs += c_usPerMs;
        dongle.advance(nowUs);
        m_output += takeOutput();
    }
}

void Talk::addFault(const char* text)
{
    QString error;
    const std::optional<Fault> fault = Fault::fromText(QLatin1String(text), &error);
    QVERIFY2(fault, qPrintable(error));
    QVERIFY(dongle.faults().add(*fault));
}
