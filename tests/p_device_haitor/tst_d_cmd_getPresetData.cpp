#include <QDebug>
#include <QRegularExpression>
#include <QThread>

#include <lib_utilities/utilities.h>

#include "command_run.h"
#include "d_cmd_getPresetData.h"
#include "log_capture.h"

namespace {

using PresetRun = CommandRun<DCmdGetPresetData>;

QVariantMap wanted(const QVariant& progId)
{
    return {{QStringLiteral("progId"), progId}};
}

QVariantMap program(const QVariant& progId, const char* torque)
{
    return {{QStringLiteral("progId"), progId}, {QStringLiteral("TRQ"), QString::fromUtf8(torque)}};
}

/// Programs 1 and 2 with torques of 10 and 20.
QVariantList storedPrograms()
{
    return {program(1, "10"), program(2, "20")};
}

int publishedTorque(const PresetRun& run)
{
    return run.order.lastResult(QStringLiteral("presetData")).toMap().value(QStringLiteral("torque")).toInt();
}

} // namespace

class TestDCmdGetPresetData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transcript_data() { addTranscriptRows(QStringLiteral(TRANSCRIPTS "/getPresetData")); }
    void transcript() { playTranscript(); }

    void declaresItself()
    {
        PresetRun run;
        QCOMPARE(run.command->fullDescription(), jsonObject(R"json({
            "name": "getPresetData", "stopName": "",
            "description": "Get the configuration of a preset from the stored program list",
            "parameters": [
                {"name": "progId", "type": "uint", "description": "The id of the program", "default": 1}],
            "results": [
                {"name": "cmd_success", "type": "bool", "description": "Success of the command", "default": false},
                {"name": "presetData", "type": "varM", "description": "the presets data"}]
        })json"));
    }

    void aFreshCommandIsOfTheSameClassAndPlugin()
    {
        PresetRun run(wanted(2));
        QVERIFY(qobject_cast<DCmdGetPresetData*>(run.command) != nullptr);
        QCOMPARE(run.command->parent(), &run.plugin);
    }

    void aFreshCommandHasTheGivenParametersAndTheSameDeclarations()
    {
        PresetRun run(wanted(2));
        QCOMPARE(run.command->commandArguments(), wanted(2));
        QCOMPARE(run.command->fullDescription(), run.prototype.fullDescription());
    }

    void aRefusedRunDoesNothing()
    {
        const LogCapture log;
        PresetRun run(wanted(2));
        run.order.accepts = false;
        QVERIFY(!run.execute());
        QVERIFY(run.order.events().isEmpty());
        QVERIFY(log.messages(QtCriticalMsg).isEmpty());
    }

    void withoutADeviceTheRunIsRefusedWithoutAWord()
    {
        const LogCapture log;
        RecordingOrder order;
        QObject stranger;
        DCmdGetPresetData command({}, &stranger);
        command.linkWithItsOrder(&order);
        QVERIFY(!command.commandExecute());
        QVERIFY(order.events().isEmpty());
        QVERIFY(log.messages(QtCriticalMsg).isEmpty());
    }

    void bothResultsArePublishedInOneCallAndNothingElseIsDone()
    {
        PresetRun run(wanted(2));
        run.give("programList", storedPrograms());
        QVERIFY(run.execute());
        QCOMPARE(run.order.events().size(), 1);
        QCOMPARE(run.order.published().size(), 1);
        QCOMPARE(run.order.published().constFirst().keys(),
                 QStringList({QStringLiteral("cmd_success"), QStringLiteral("presetData")}));
    }

    void theRunIsNotFinishedOnPurpose()
    {
        PresetRun run(wanted(2));
        run.give("programList", storedPrograms());
        QVERIFY(run.execute());
        QVERIFY(run.order.ends().isEmpty());
    }

    void thePublishedTypesAreBoolAndMap()
    {
        PresetRun run(wanted(2));
        run.give("programList", storedPrograms());
        QVERIFY(run.execute());
        QCOMPARE(run.order.lastResult(QStringLiteral("cmd_success")).userType(), int(QMetaType::Bool));
        QCOMPARE(run.order.lastResult(QStringLiteral("presetData")).userType(), int(QMetaType::QVariantMap));
    }

    void withoutProgIdItRunsWithOne()
    {
        PresetRun run;
        run.give("programList", storedPrograms());
        QVERIFY(run.execute());
        QCOMPARE(publishedTorque(run), 1000);
    }

    void theIdMayBeGivenAs_data()
    {
        QTest::addColumn<QVariant>("progId");
        QTest::newRow("an int") << QVariant(2);
        QTest::newRow("an unsigned int") << QVariant(2U);
        QTest::newRow("a text") << QVariant(QStringLiteral("2"));
    }

    void theIdMayBeGivenAs()
    {
        QFETCH(const QVariant, progId);
        PresetRun run(wanted(progId));
        run.give("programList", storedPrograms());
        QVERIFY(run.execute());
        QCOMPARE(publishedTorque(run), 2000);
    }

    void ofTwoProgramsWithTheSameIdTheFirstWins()
    {
        PresetRun run(wanted(2));
        run.give("programList", QVariantList{program(1, "10"), program(2, "20"), program(2, "30")});
        QVERIFY(run.execute());
        QCOMPARE(publishedTorque(run), 2000);
    }

    void aListReadBackFromTheConfigurationServesAsWell()
    {
        // As numbers come back from JSON.
        PresetRun run(wanted(2));
        run.give("programList", QVariantList{program(1.0, "10"), program(2.0, "20")});
        QVERIFY(run.execute());
        QCOMPARE(publishedTorque(run), 2000);
    }

    void whatIsNoMapInTheListIsPassedOver()
    {
        PresetRun run(wanted(2));
        run.give("programList", QVariantList{QStringLiteral("2"), 2, QVariant(), program(2, "20")});
        QVERIFY(run.execute());
        QCOMPARE(publishedTorque(run), 2000);
    }

    void withoutTheProgramItPublishesFalseAndAnEmptyRecord_data()
    {
        QTest::addColumn<QVariant>("list");
        QTest::addColumn<QVariant>("progId");

        const QVariant list = storedPrograms();
        QTest::newRow("no list yet") << QVariant() << QVariant(1);
        QTest::newRow("an empty list") << QVariant(QVariantList{}) << QVariant(1);
        QTest::newRow("an id behind the last") << list << QVariant(3);
        QTest::newRow("an id before the first") << list << QVariant(0);
        QTest::newRow("a negative id") << list << QVariant(-1);
        QTest::newRow("an id that is no number") << list << QVariant(QStringLiteral("two"));
        QTest::newRow("an empty id") << list << QVariant(QString());
        QTest::newRow("what is no list") << QVariant(QStringLiteral("programs")) << QVariant(1);
    }

    void withoutTheProgramItPublishesFalseAndAnEmptyRecord()
    {
        QFETCH(const QVariant, list);
        QFETCH(const QVariant, progId);
        const LogCapture log;
        PresetRun run(wanted(progId));
        if (list.isValid()) {
            run.give("programList", list);
        }
        QVERIFY(run.execute());
        const QVariantMap nothing{{QStringLiteral("cmd_success"), false},
                                  {QStringLiteral("presetData"), QVariantMap{}}};
        QCOMPARE(run.order.published(), QVector<QVariantMap>{nothing});
        QCOMPARE(run.order.events().size(), 1);
        QCOMPARE(log.messages(QtCriticalMsg).size(), 1);
    }

    void theLogLineIsWrittenBeforeTheResults()
    {
        PresetRun run(wanted(3));
        int eventsBefore = -1;
        const LogCapture log([&](const LogMessage&) { eventsBefore = run.order.events().size(); });
        QVERIFY(run.execute());
        QCOMPARE(eventsBefore, 0);
        QCOMPARE(run.order.events().size(), 1);
    }

    void aProgramThatIsFoundWritesNoLogLine()
    {
        const LogCapture log;
        PresetRun run(wanted(2));
        run.give("programList", storedPrograms());
        QVERIFY(run.execute());
        QVERIFY(log.messages(QtCriticalMsg).isEmpty());
    }

    void theLogLineIsOfTheCategoryDefault()
    {
        const LogCapture log;
        PresetRun run(wanted(3));
        QVERIFY(run.execute());
        QCOMPARE(log.messages(QtCriticalMsg).constFirst().category, QStringLiteral("default"));
    }

    void theLogLineIsMadeOfThesePieces()
    {
        const LogCapture log;
        PresetRun run(wanted(3));
        QVERIFY(run.execute());
        QStringList pieces = log.messages(QtCriticalMsg).constFirst().text.split(QStringLiteral(";\t"));

        const QRegularExpression date(QStringLiteral("^\n \"\\S+\" $"));
        QVERIFY2(date.match(pieces.takeFirst()).hasMatch(),
                 "a line break, the date in quotes, each followed by one blank");
        const auto shown = [](const QObject* object) {
            QString text;
            QDebug(&text).nospace() << object;
            return text;
        };
        QCOMPARE(pieces,
                 QStringList({QStringLiteral(" Thread = %1 ").arg(shown(QThread::currentThread())),
                              QStringLiteral(" This = %1 ").arg(shown(run.command)),
                              QStringLiteral(" plugins/p_device_haitor/source/d_cmd_getPresetData "),
                              QStringLiteral(" 75 "), QStringLiteral(" Program ID not found in stored list: 3")}));
    }

    void theLogLineHoldsTheDateInBetween()
    {
        const QString before = getDate();
        const LogCapture log;
        PresetRun run(wanted(3));
        QVERIFY(run.execute());
        const QString after = getDate();
        const QString text = log.messages(QtCriticalMsg).constFirst().text;
        const QString date = text.section(QStringLiteral(";\t"), 0, 0).remove(QLatin1Char('"')).trimmed();
        QVERIFY2(before <= date && date <= after, qPrintable(date));
    }

    void theSameCommandRunsTwice()
    {
        PresetRun run(wanted(2));
        const LogCapture log;
        QVERIFY(run.execute());
        run.give("programList", storedPrograms());
        QVERIFY(run.execute());
        QCOMPARE(run.order.published().size(), 2);
        QCOMPARE(run.order.published().at(0).value(QStringLiteral("cmd_success")), QVariant(false));
        QCOMPARE(run.order.published().at(1).value(QStringLiteral("cmd_success")), QVariant(true));
    }

    void noPropertyIsWritten()
    {
        const LogCapture log;
        PresetRun run(wanted(3));
        QVERIFY(run.execute());
        for (const char* name : {"lock", "programList", "programListCount", "currentProgId"}) {
            QVERIFY2(!run.hasProperty(name), name);
        }
    }

    void theHostMayEndTheRun()
    {
        PresetRun run(wanted(2));
        run.give("programList", storedPrograms());
        QVERIFY(run.execute());
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }

    void finishingWithoutARunDoesNothing()
    {
        PresetRun run;
        bool ok = true;
        QVERIFY(!run.command->finishTheCommand(ok));
        QVERIFY(ok);
        QVERIFY(run.order.events().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDCmdGetPresetData)

#include "tst_d_cmd_getPresetData.moc"
