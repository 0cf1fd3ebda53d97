#pragma once

#include <QJsonDocument>
#include <QJsonObject>

#include "command_fixture.h"

/// A description of a command, as written in a test.
inline QJsonObject jsonObject(const char* json)
{
    return QJsonDocument::fromJson(json).object();
}

/// What a test says to a command of the fixture and asks of it, where a transcript cannot.
template <class Command>
struct CommandRun : CommandFixture<Command>
{
    using CommandFixture<Command>::CommandFixture;
    using CommandFixture<Command>::command;
    using CommandFixture<Command>::order;
    using CommandFixture<Command>::plugin;

    bool execute() { return command->commandExecute(); }

    /// The index-th instruction is answered; negative: from the end. False: nobody waits for the answer.
    bool answer(int index, const QVariantMap& reply) { return command->setReply(order.instructionId(index), reply); }

    /// The driver delivers a chunk on the subscription opened last. False: nobody listens.
    bool arrive(int number, const QByteArray& chunk)
    {
        return command->setReply(order.openSubscription(),
                                 {{QStringLiteral("number"), number}, {QStringLiteral("frame"), chunk}});
    }

    QVariant property(const char* name) const { return plugin.getProperty(QLatin1String(name), QVariant()); }

    bool hasProperty(const char* name) const
    {
        bool exists = false;
        plugin.getProperty(QLatin1String(name), &exists);
        return exists;
    }

    /// The value that survives a restart; undefined: none does.
    QJsonValue keptProperty(const char* name) const
    {
        return plugin.getInPluginConfig(QStringLiteral("properties")).toObject().value(QLatin1String(name));
    }

    /// The plugin has the property since before the run, and not over a restart.
    void give(const char* name, const QVariant& value) { plugin.setProperty(QLatin1String(name), value, false); }

    /// Texts of the frames written, without CR LF.
    QStringList frames() const
    {
        QStringList texts;
        const QVector<DInstruction> instructions = order.instructions();
        for (const DInstruction& instruction : instructions) {
            if (instruction.command == QLatin1String("write")) {
                const QByteArray frame = instruction.parameters.value(QStringLiteral("frame")).toByteArray();
                texts.append(QString::fromUtf8(frame.chopped(2)));
            }
        }
        return texts;
    }

    /// The one written last; empty: none was.
    QString lastFrame() const
    {
        const QStringList texts = frames();
        return texts.isEmpty() ? QString() : texts.last();
    }
};
