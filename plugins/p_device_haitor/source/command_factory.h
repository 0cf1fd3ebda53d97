#pragma once

#include <QPointer>
#include <QSharedPointer>

#include <memory>

#include <lib_plugins_management/i_command.h>

/// Makes a command for one run. It is a child of the plugin and also held by the pointer; whichever goes first deletes
/// it, and the other finds it gone. Command: has the constructor (parameters, parent).
template <class Command>
QSharedPointer<ICommand> makeCommand(const QMap<QString, QVariant>& parameters, QObject* parent)
{
    auto* command = new Command(parameters, parent);
    // Shared, because clang's analyser takes the end of each copy of a QPointer for another deletion.
    const auto guard = std::make_shared<QPointer<QObject>>(command);
    return QSharedPointer<ICommand>(command, [guard](ICommand*) { delete guard->data(); });
}
