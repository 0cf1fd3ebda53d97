#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

/// Turns Ctrl-C, a request to end and a closed terminal into a signal of the event loop. A second one within the same
/// run ends the process at once. There is one in a program.
class Interrupts : public QObject
{
    Q_OBJECT

public:
    explicit Interrupts(QObject* parent = nullptr);
    ~Interrupts() override;

Q_SIGNALS:
    void sigInterrupted();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
