#pragma once

#include <QMap>
#include <QVariant>

#include <memory>

#include "command_line.h"
#include "workplace_command.h"

/// `run`: one command of a plugin, with its results as they come.
class RunCommand : public WorkplaceCommand
{
    Q_OBJECT

public:
    RunCommand(const CliContext& context, int limitMs);

    static CliEntry entry();

    void interrupt() override;

protected:
    void begin() override;

private:
    DAbstractPlugin* findPlugin();
    void show(const QMap<QString, QVariant>& values);
    void ended();

    QString m_target;  // "driver" or empty: what stood before the "/"
    QString m_command; // as given
    const QStringList m_parameters;
    const int m_limitMs;
    std::unique_ptr<DOrder> m_run;
    std::unique_ptr<DOrder> m_stop;
    bool m_isInterrupted = false;
};
