#pragma once

#include <QQuickItem>

#include <memory>

#include "../services/problem.h"

class QQmlContext;

/// Shows the maintenance panel that a device's plugin brings, for that device. Anew when the device is another one.
/// What is wrong with a panel is told as a problem.
class PanelView : public QQuickItem
{
    Q_OBJECT
    Q_PROPERTY(QString pluginUuid READ pluginUuid WRITE setPluginUuid NOTIFY deviceChanged)
    Q_PROPERTY(QString objectId READ objectId WRITE setObjectId NOTIFY deviceChanged)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY deviceChanged)
    Q_PROPERTY(QString reference READ reference WRITE setReference NOTIFY deviceChanged)
    Q_PROPERTY(bool hasPanel READ hasPanel NOTIFY panelChanged)
    Q_PROPERTY(bool hasProblem READ hasProblem NOTIFY panelChanged)
    Q_PROPERTY(QString problemWhat READ problemWhat NOTIFY panelChanged)
    Q_PROPERTY(QString problemCause READ problemCause NOTIFY panelChanged)
    Q_PROPERTY(QString problemMend READ problemMend NOTIFY panelChanged)

public:
    explicit PanelView(QQuickItem* parent = nullptr);
    ~PanelView() override;

    QString pluginUuid() const { return m_pluginUuid; } ///< empty: there is no device to show
    QString objectId() const { return m_objectId; }     ///< uuid of the plugin's working instance; empty: likewise
    QString name() const { return m_name; }
    QString reference() const { return m_reference; }
    void setPluginUuid(const QString& uuid) { set(&m_pluginUuid, uuid); }
    void setObjectId(const QString& uuid) { set(&m_objectId, uuid); }
    void setName(const QString& name) { set(&m_name, name); }
    void setReference(const QString& reference) { set(&m_reference, reference); }

    bool hasPanel() const { return m_panel != nullptr; }
    bool hasProblem() const { return !m_problem.what.isEmpty(); }
    QString problemWhat() const { return m_problem.what; }
    QString problemCause() const { return m_problem.cause; }
    QString problemMend() const { return m_problem.mend; }

    /// Asks the panel to show fresh values. Done by itself when it is loaded in sight, and when it comes into sight.
    Q_INVOKABLE void refresh();

Q_SIGNALS:
    void deviceChanged();
    void panelChanged();

protected:
    void componentComplete() override;
    void geometryChanged(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void set(QString* field, const QString& value);
    void loadLater();
    void load();
    void fail(const QString& what, const QString& cause, const QString& mend);

    QString m_pluginUuid;
    QString m_objectId;
    QString m_name;
    QString m_reference;
    std::unique_ptr<QQmlContext> m_context; // of the panel, which goes first
    std::unique_ptr<QQuickItem> m_panel;
    Problem m_problem;
    bool m_isDue = false; // in a later turn, once for all that changes in this one
};
