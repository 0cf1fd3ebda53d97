#pragma once

#include "d_line_command.h"

/// "write": puts one frame on the line, after those asked before it, and answers when its bytes have left.
class DCmdWrite : public DLineCommand
{
    Q_OBJECT

public:
    static constexpr int c_defaultLimitMs = 500;

    DCmdWrite(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent);
    ~DCmdWrite() override;

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    void forgetTheFrame();

    WriteQueue::Id m_frameId = 0; // the frame that the run waits for
};
