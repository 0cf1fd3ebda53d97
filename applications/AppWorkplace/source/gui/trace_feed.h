#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>

#include <memory>

#include <lib_plugins_management/host/d_host.h>

class DAbstractPlugin;
class DOrder;

/// Hears the trace of a line from its driver, line by line, while it is on. It costs the driver nothing while it is
/// off.
class TraceFeed : public QObject
{
    Q_OBJECT

public:
    explicit TraceFeed(QObject* parent = nullptr);
    ~TraceFeed() override;

    /// The line to hear; nulls: there is none now. Either may be destroyed before the feed.
    void setLine(DHost* host, DAbstractPlugin* driver);
    void setOn(bool isOn);
    bool isOn() const { return m_isOn; }
    /// It is on, and there is a line whose driver tells its trace.
    bool isHearing() const { return m_order != nullptr; }

Q_SIGNALS:
    /// The first line of a trace: what is traced, and the date of moment 0.
    void sigBegan(const QByteArray& line);
    void sigEntry(const QByteArray& line);
    void sigHearingChanged();

private:
    void update();
    void hear(const QString& line);

    QPointer<DHost> m_host;
    QPointer<DAbstractPlugin> m_driver;
    std::unique_ptr<DOrder> m_order;
    bool m_isOn = false;
};
