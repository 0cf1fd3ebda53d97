#include <QTest>

#include "command_talk.h"
#include "log_capture.h"
#include "random_talk.h"

namespace {

/// A number out of the environment.
quint64 given(const char* name, quint64 otherwise)
{
    bool isNumber = false;
    const quint64 number = qEnvironmentVariable(name).toULongLong(&isNumber);
    return isNumber ? number : otherwise;
}

/// How to have this talk again, and what was different.
QByteArray complaint(quint64 seed, const TalkSetUp& setUp, const QVector<QVariantMap>& replies,
                     const TalkOutcome& outcome, const TalkOutcome& expected)
{
    QByteArray text = "talk " + QByteArray::number(seed) + " of " + setUp.command.toLatin1() +
                      "; again with TALK_SEED=" + QByteArray::number(seed) + " TALKS=1\n";
    for (const QVariantMap& reply : replies) {
        text += "  reply " + reply.value(QStringLiteral("number")).toByteArray() + ": \"" +
                reply.value(QStringLiteral("frame")).toByteArray().toPercentEncoding(" ,:") + "\"\n";
    }
    for (int i = 0; i < qMax(outcome.events.size(), expected.events.size()); ++i) {
        const QString happened = outcome.events.value(i, QStringLiteral("nothing"));
        const QString wanted = expected.events.value(i, QStringLiteral("nothing"));
        if (happened != wanted) {
            return text + "event " + QByteArray::number(i + 1) + ": " + happened.toUtf8() +
                   "\nexpected: " + wanted.toUtf8();
        }
    }
    return text + "the properties differ";
}

} // namespace

/// The commands that listen, beside the naive talks, on talks that are drawn from a seed: TALKS of them (4000 when not
/// said) from TALK_SEED (1) on.
class TestRandomTalks : public QObject
{
    Q_OBJECT

private:
    PDeviceHaitor m_plugin{QUuid::createUuid(), nullptr};

private Q_SLOTS:
    void aCommandDoesWhatTheNaiveTalkDoes()
    {
        const quint64 first = given("TALK_SEED", 1);
        const quint64 talks = given("TALKS", 4000);
        const LogCapture log;
        QMap<QString, int> ended;
        for (quint64 seed = first; seed < first + talks; ++seed) {
            RandomTalk random(seed);
            CommandTalk talk(m_plugin, random.setUp());
            talk.start();
            const QVector<QVariantMap> replies = random.talkTo(talk);
            const TalkOutcome outcome = talk.outcome();
            const TalkOutcome expected = CommandTalk::playNaively(random.setUp(), replies);
            QVERIFY2(outcome == expected, complaint(seed, random.setUp(), replies, outcome, expected).constData());
            ended[random.setUp().command] += outcome.events.last().startsWith(QLatin1String("end")) ? 1 : 0;
        }
        // Talks that never get anywhere would compare nothing.
        for (const char* command : {"searchAndConnect", "sendInitConfig", "listProgram", "setProgram"}) {
            QVERIFY2(talks < 1000 || ended.value(QLatin1String(command)) > int(talks / 100), command);
        }
    }

    void theSameSeedGivesTheSameTalk()
    {
        const LogCapture log;
        QVector<QVariantMap> replies[2];
        for (auto& each : replies) {
            RandomTalk random(7);
            CommandTalk talk(m_plugin, random.setUp());
            talk.start();
            each = random.talkTo(talk);
        }
        QVERIFY(!replies[0].isEmpty());
        QCOMPARE(replies[0], replies[1]);
    }
};

QTEST_GUILESS_MAIN(TestRandomTalks)

#include "tst_random_talks.moc"
