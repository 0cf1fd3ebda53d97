#include "command_run.h"
#include "d_cmd_setProgram.h"

namespace {

using SelectRun = CommandRun<DCmdSetProgram>;

QVariantMap done()
{
    return {{QStringLiteral("cmd_success"), true}};
}

QVariantMap wanted(const QVariant& progId)
{
    return {{QStringLiteral("progId"), progId}};
}

} // namespace

/// The way of a program that is current already: the plugin answers itself.
class TestDCmdSetProgramCurrent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCurrentProgramUnlocksTheToolAndSendsTheWrenchNothing()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QCOMPARE(run.order.events().size(), 1);
        const DInstruction sent = run.order.instructions().constFirst();
        QCOMPARE(sent.target, QStringLiteral("myself"));
        QCOMPARE(sent.command, QStringLiteral("setLock"));
        QCOMPARE(sent.parameters, QVariantMap({{QStringLiteral("lock"), false}}));
        QCOMPARE(sent.parameters.first().userType(), int(QMetaType::Bool));
        QCOMPARE(sent.limitMs, 3000);
        QVERIFY(sent.wantsReply);
    }

    void theCurrentProgramMayBeAsItComesBackFromTheConfiguration()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2.0);
        QVERIFY(run.execute());
        QCOMPARE(run.order.instructions().constFirst().command, QStringLiteral("setLock"));
    }

    void withoutAnyPropertyTheIdZeroIsTheCurrentOne()
    {
        SelectRun run(wanted(0));
        QVERIFY(run.execute());
        QCOMPARE(run.order.instructions().constFirst().command, QStringLiteral("setLock"));
        QVERIFY(!run.hasProperty("currentProgId"));
    }

    void aRefusedInstructionRefusesTheRun()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        run.order.refusesInstructions = true;
        QVERIFY(!run.execute());
    }

    void theUnlockedToolMakesItAskForThePreset()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        QCOMPARE(run.order.events().size(), 2);
        const DInstruction sent = run.order.instructions().constLast();
        QCOMPARE(sent.target, QStringLiteral("myself"));
        QCOMPARE(sent.command, QStringLiteral("getPresetData"));
        QCOMPARE(sent.parameters, wanted(2));
        QCOMPARE(sent.parameters.first().userType(), int(QMetaType::Int));
        QCOMPARE(sent.limitMs, 3000);
        QVERIFY(sent.wantsReply);
    }

    void aRefusedLockLeavesTheRunOpenOnPurpose_data()
    {
        QTest::addColumn<QVariantMap>("reply");
        QTest::newRow("false") << QVariantMap{{QStringLiteral("cmd_success"), false}};
        QTest::newRow("without cmd_success") << QVariantMap{{QStringLiteral("lock"), true}};
        QTest::newRow("empty") << QVariantMap{};
    }

    void aRefusedLockLeavesTheRunOpenOnPurpose()
    {
        QFETCH(const QVariantMap, reply);
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, reply));
        QCOMPARE(run.order.events().size(), 1);
    }

    void theStoredPresetIsPublishedAsItCame()
    {
        const QVariantMap preset{{QStringLiteral("unit"), QStringLiteral("N.m")}, {QStringLiteral("torque"), 1200}};
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        run.order.forgetEvents();
        QVERIFY(
            run.command->setReply(2, {{QStringLiteral("cmd_success"), true}, {QStringLiteral("presetData"), preset}}));
        const QVector<OrderEvent>& events = run.order.events();
        QCOMPARE(events.size(), 3);
        QCOMPARE(events.at(0).values, QVariantMap({{QStringLiteral("presetData"), preset}}));
        QCOMPARE(events.at(1).values, done());
        QCOMPARE(events.at(2).kind, OrderEvent::Kind::End);
        QVERIFY(events.at(2).ok);
    }

    void aPresetThatWasNotFoundIsASuccessOnPurpose_data()
    {
        QTest::addColumn<QVariant>("preset");
        QTest::newRow("an empty map") << QVariant(QVariantMap{});
        QTest::newRow("what is no map") << QVariant(QStringLiteral("none"));
        QTest::newRow("the invalid value") << QVariant();
    }

    void aPresetThatWasNotFoundIsASuccessOnPurpose()
    {
        QFETCH(const QVariant, preset);
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        QVERIFY(run.answer(1, {{QStringLiteral("cmd_success"), false}, {QStringLiteral("presetData"), preset}}));
        QCOMPARE(run.order.lastResult(QStringLiteral("presetData")), QVariant(QVariantMap{}));
        QCOMPARE(run.order.lastResult(QStringLiteral("cmd_success")), QVariant(true));
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }

    void aReplyWithoutPresetDataIsIgnored()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        QVERIFY(run.answer(1, done()));
        QVERIFY(run.order.published().isEmpty());
        QVERIFY(run.order.ends().isEmpty());
    }

    void theStoredWayWritesNoProperty()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        QVERIFY(run.answer(1, {{QStringLiteral("presetData"), QVariantMap{}}}));
        QVERIFY(run.keptProperty("currentProgId").isUndefined());
        QVERIFY(!run.hasProperty("lock"));
    }

    // Ends.

    void stoppedWhileTheToolIsBeingUnlocked()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        bool ok = false;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(!run.answer(0, done()));
        QCOMPARE(run.order.instructions().size(), 1);
        QCOMPARE(run.order.ends(), QVector<bool>{false});
    }

    void stoppedWhileThePresetIsLookedUp()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        bool ok = true;
        QVERIFY(run.command->finishTheCommand(ok));
        QVERIFY(!run.answer(1, {{QStringLiteral("presetData"), QVariantMap{}}}));
        QVERIFY(run.order.published().isEmpty());
    }

    void whoHearsOfTheEndMayDeleteTheCommand()
    {
        SelectRun run(wanted(2));
        run.give("currentProgId", 2);
        QVERIFY(run.execute());
        QVERIFY(run.answer(0, done()));
        connect(run.command, &DAbstractCommand::sigCommandFinished, this, [&] { run.held.reset(); });
        QVERIFY(run.answer(1, {{QStringLiteral("presetData"), QVariantMap{}}}));
        QCOMPARE(run.order.ends(), QVector<bool>{true});
    }
};

QTEST_GUILESS_MAIN(TestDCmdSetProgramCurrent)

#include "tst_d_cmd_setProgram_current.moc"
