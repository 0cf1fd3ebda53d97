#pragma once

#include <lib_plugins_management/d_abstract_command.h>

class DAbstractPlugin;
class DRouter;

/// What a stop command does when it is run: it stops every running command of the plugin that names it.
class StopRunsCommand : public DAbstractCommand
{
    Q_OBJECT

public:
    static QSharedPointer<ICommand> create(const QString& stopCommand, DRouter& router, DAbstractPlugin& plugin);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    StopRunsCommand(const QString& stopCommand, DRouter& router, DAbstractPlugin& plugin);

    DRouter& m_router;
    DAbstractPlugin& m_plugin;
};
