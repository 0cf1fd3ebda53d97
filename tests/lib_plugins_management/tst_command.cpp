#include <QTest>

#include "workbench.h"

/// What a command declares and reads; its runs are tested elsewhere.
class TstCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreWhatItWasMadeWith();
    void commandWithAStopNameIsRecurrent();
    void givenValueComesFirst();
    void givenInvalidValueIsStillGiven();
    void declaredDefaultComesSecond();
    void callersDefaultComesLast();
    void declaredTypesMustBeKnown_data();
    void declaredTypesMustBeKnown();
    void nameMustNotBeEmpty();
    void orderOfTheCallerIsAParameter();
    void madeCommandHasItsParametersAndTheSameDeclarations();

private:
    ScriptPointer m_script = std::make_shared<Script>(QStringLiteral("work"));
};

void TstCommand::namesAreWhatItWasMadeWith()
{
    const ScriptedCommand command(m_script, {}, nullptr);
    QCOMPARE(command.commandName(), QStringLiteral("work"));
    QCOMPARE(command.stopCommandName(), QString());
    QVERIFY(!command.isRecurrent());
    QVERIFY(command.isValid());
}

void TstCommand::commandWithAStopNameIsRecurrent()
{
    const ScriptedCommand command(std::make_shared<Script>(QStringLiteral("listen"), QStringLiteral("stop")), {},
                                  nullptr);
    QCOMPARE(command.stopCommandName(), QStringLiteral("stop"));
    QVERIFY(command.isRecurrent());
}

void TstCommand::givenValueComesFirst()
{
    ScriptedCommand command(m_script, {{QStringLiteral("a"), 1}}, nullptr);
    command.declareAParameter(QStringLiteral("a"), QStringLiteral("int"), QString(), 2);
    QCOMPARE(command.getParameterValue(QStringLiteral("a"), 3), QVariant(1));
}

void TstCommand::givenInvalidValueIsStillGiven()
{
    ScriptedCommand command(m_script, {{QStringLiteral("a"), QVariant()}}, nullptr);
    command.declareAParameter(QStringLiteral("a"), QStringLiteral("int"), QString(), 2);
    QVERIFY(!command.getParameterValue(QStringLiteral("a"), 3).isValid());
}

void TstCommand::declaredDefaultComesSecond()
{
    ScriptedCommand command(m_script, {}, nullptr);
    command.declareAParameter(QStringLiteral("a"), QStringLiteral("int"), QString(), 2);
    QCOMPARE(command.getParameterValue(QStringLiteral("a"), 3), QVariant(2));
}

void TstCommand::callersDefaultComesLast()
{
    ScriptedCommand command(m_script, {}, nullptr);
    command.declareAParameter(QStringLiteral("a"), QStringLiteral("int"), QString(), QVariant());
    QCOMPARE(command.getParameterValue(QStringLiteral("a"), 3), QVariant(3));
    QCOMPARE(command.getParameterValue(QStringLiteral("undeclared"), 4), QVariant(4));
}

void TstCommand::declaredTypesMustBeKnown_data()
{
    QTest::addColumn<bool>("isKnown");
    for (const char* type : {"bool", "int", "uint", "strg", "varM", "varL"}) {
        QTest::newRow(type) << true;
    }
    for (const char* type : {"", "string", "Bool", "double"}) {
        QTest::newRow(type) << false;
    }
}

void TstCommand::declaredTypesMustBeKnown()
{
    const QString type = QString::fromLatin1(QTest::currentDataTag());
    QFETCH(bool, isKnown);
    ScriptedCommand withParameter(m_script, {}, nullptr);
    withParameter.declareAParameter(QStringLiteral("a"), type, QString(), QVariant());
    QCOMPARE(withParameter.isValid(), isKnown);
    ScriptedCommand withResult(m_script, {}, nullptr);
    withResult.declareAResult(QStringLiteral("a"), type, QString(), QVariant());
    QCOMPARE(withResult.isValid(), isKnown);
}

void TstCommand::nameMustNotBeEmpty()
{
    QVERIFY(!ScriptedCommand(std::make_shared<Script>(QString()), {}, nullptr).isValid());
}

void TstCommand::orderOfTheCallerIsAParameter()
{
    QCOMPARE(ScriptedCommand(m_script, {}, nullptr).getParameterOrderId(), QString());
    QCOMPARE(
        ScriptedCommand(m_script, {{QStringLiteral("orderId"), QStringLiteral("A-17")}}, nullptr).getParameterOrderId(),
        QStringLiteral("A-17"));
}

void TstCommand::madeCommandHasItsParametersAndTheSameDeclarations()
{
    m_script->declare = [](ScriptedCommand& command) {
        command.declareAParameter(QStringLiteral("a"), QStringLiteral("int"), QString(), 2);
    };
    QObject parent;
    const ScriptedCommand prototype(m_script, {}, &parent);
    const Values parameters{{QStringLiteral("a"), 1}};
    const QSharedPointer<ICommand> made = prototype.createCommand(parameters);
    QCOMPARE(made->commandArguments(), parameters);
    QCOMPARE(made->fullDescription(), prototype.fullDescription());
    QCOMPARE(dynamic_cast<QObject*>(made.data())->parent(), &parent);
    m_script->declare = {};
}

QTEST_GUILESS_MAIN(TstCommand)
#include "tst_command.moc"
