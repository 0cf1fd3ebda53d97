#pragma once

#include <lib_plugins_management/host/d_plugin_loader.h>

#include "command_line.h"

/// `commands`: what the loaded plugins offer, in their own words.
class CommandsCommand : public CliCommand
{
    Q_OBJECT

public:
    explicit CommandsCommand(const CliContext& context);

    static CliEntry entry();

    void start() override;

private:
    /// Tells what the plugin has of what was asked for. False: nothing.
    bool tellOf(const DAbstractPlugin& plugin);
    void tellAll(const DAbstractPlugin& plugin);
    void tellOne(const DAbstractPlugin& plugin, const QJsonObject& description);

    const QString m_named; // as it was asked for
    const bool m_isOfDriver;
    const QString m_command; // empty: all
};
