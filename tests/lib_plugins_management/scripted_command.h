#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

#include <lib_plugins_management/d_abstract_command.h>

using Values = QMap<QString, QVariant>;

class ScriptedCommand;

/// What a command of a test does, and what has been done with it; shared by its prototypes and all its runs.
struct Script
{
    explicit Script(QString commandName, QString stopCommandName = {})
        : name(std::move(commandName)), stopName(std::move(stopCommandName))
    {}

    QString name;
    QString stopName;
    std::function<void(ScriptedCommand&)> declare;                   ///< called by the constructor
    std::function<bool(ScriptedCommand&)> execute;                   ///< once the base has accepted the run
    std::function<void(ScriptedCommand&, quint64)> onReply;          ///< from inside the delegate
    std::function<bool(ScriptedCommand&, bool& ok)> finish;          ///< empty: the base's
    std::function<void(ScriptedCommand&)> destroy;                   ///< from inside the destructor
    std::function<QSharedPointer<ICommand>(ScriptedCommand*)> share; ///< empty: shareGuarded()

    int executed = 0;
    int finished = 0;
    int destroyed = 0;
    QList<Values> arguments; ///< of each execution
    QList<Values> replies;
    QList<quint64> replyIds;
    ScriptedCommand* last = nullptr; ///< the run that was executed last, null once it is destroyed
};

using ScriptPointer = std::shared_ptr<Script>;

/// A command that follows its script.
class ScriptedCommand : public DAbstractCommand
{
    Q_OBJECT

public:
    ScriptedCommand(ScriptPointer script, const Values& parameters, QObject* parent);
    ~ScriptedCommand() override;

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const Values& parameters) const override;

    /// Holds the command with a deleter that deletes what is still there.
    static QSharedPointer<ICommand> shareGuarded(ScriptedCommand* command);

    /// The delegate that notes each reply in the script.
    ReplyDelegate delegate() { return fastdelegate::MakeDelegate(this, &ScriptedCommand::onReply); }
    /// addInstruction() with that delegate.
    quint64 ask(const QString& target, const QString& instruction, const Values& parameters = {}, int limitMs = 1000);
    quint64 subscribe(const QString& target, const QString& instruction, int limitMs = 1000);

    using DAbstractCommand::commandFinish;
    using DAbstractCommand::commandUpdateResult;
    using DAbstractCommand::commandUpdateResults;
    using DAbstractCommand::declareAParameter;
    using DAbstractCommand::declareAResult;
    using DAbstractCommand::getParameterValue;
    using DAbstractCommand::setDescription;
    using DAbstractCommand::stopTheInstruction;

private:
    bool onReply(quint64 instructionId, const Values& reply);

    ScriptPointer m_script;
};
