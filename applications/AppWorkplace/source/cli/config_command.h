#pragma once

#include <QList>

#include "../services/workplace.h"
#include "command_line.h"
#include "text_table.h"

/// `config`: the settings as they are in effect and where each comes from, or a commented file to begin with.
class ConfigCommand : public CliCommand
{
    Q_OBJECT

public:
    explicit ConfigCommand(const CliContext& context);

    static CliEntry entry();

    void start() override;

private:
    QVariantList settingsOfTheDriver() const;
    /// True: it is written.
    bool writeDefault(const QString& file);
    void showAll();
    /// value: undefined where nothing is set.
    void show(TextTable& table, const QString& path, const QJsonValue& value, const SettingOrigin& origin);
    SettingOrigin originOf(const QString& path) const { return m_settings.origins.value(path); }

    const QList<CliEntry> m_entries;
    Workplace m_workplace;
    const bool m_writes;
    const QString m_file; ///< to be written
};
