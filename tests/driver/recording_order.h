#pragma once

#include <QObject>
#include <QVector>

#include <lib_plugins_management/host/i_order.h>

/// Runs one command and writes down what it publishes. The driver's commands send no instructions.
class RecordingOrder : public QObject, public IOrder
{
public:
    QVector<QMap<QString, QVariant>> published;
    int finished = 0;
    bool finishedOk = false;

    /// A value of the last result; invalid when there is none.
    QVariant last(const QString& name) const { return published.isEmpty() ? QVariant() : published.last().value(name); }

    quint64 orderId() const override { return 1; }
    bool acceptsRun() const override { return true; }
    quint64 addInstruction(const DInstruction& instruction) override
    {
        Q_UNUSED(instruction)
        return 0;
    }
    bool stopInstruction(quint64 instructionId) override
    {
        Q_UNUSED(instructionId)
        return false;
    }
    void resultsPublished(const QMap<QString, QVariant>& values) override { published.append(values); }
    void runFinished(bool ok) override
    {
        ++finished;
        finishedOk = ok;
    }
};
