#pragma once

#include <QTimer>
#include <QVariant>

#include <memory>

#include "../services/wrench_scan.h"
#include "command_line.h"
#include "workplace_command.h"

/// `scan`: the wrenches in range, the strongest signal first.
class ScanCommand : public WorkplaceCommand
{
    Q_OBJECT

public:
    ScanCommand(const CliContext& context, int durationMs);

    static CliEntry entry();

    void interrupt() override;

protected:
    std::optional<Problem> check() override;
    void begin() override;

private:
    void tellEnd();
    void show(const QVariantList& wrenches);
    void showTable(const QVariantList& wrenches);
    void end();

    const DAbstractPlugin* m_root = nullptr; // the plugin that can scan
    std::unique_ptr<WrenchScan> m_scan;
    int m_shownLines = 0;
    QTimer m_duration;
};
