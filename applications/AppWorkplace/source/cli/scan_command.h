#pragma once

#include <QTimer>
#include <QVariant>

#include <memory>

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
    void begin() override;

private:
    void show(const QVariantList& wrenches);
    void end();

    std::unique_ptr<DOrder> m_detection;
    QVariantList m_shown;
    int m_shownLines = 0;
    QTimer m_duration;
};
