#include "panel_view.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>

#include "panel_document.h"

namespace {

constexpr char c_updateData[] = "updateData"; // a signal of the panel's frame

QString told(const QList<QQmlError>& errors)
{
    QStringList lines;
    for (const QQmlError& error : errors) {
        lines.append(QStringLiteral("%1:%2: %3")
                         .arg(QString::number(error.line()), QString::number(error.column()), error.description()));
    }
    return lines.join(QStringLiteral("; "));
}

} // namespace

PanelView::PanelView(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

PanelView::~PanelView() = default;

void PanelView::set(QString* field, const QString& value)
{
    if (*field != value) {
        *field = value;
        Q_EMIT deviceChanged();
        loadLater();
    }
}

void PanelView::componentComplete()
{
    QQuickItem::componentComplete();
    loadLater();
}

void PanelView::loadLater()
{
    if (isComponentComplete() && !m_isDue) {
        m_isDue = true;
        QMetaObject::invokeMethod(this, &PanelView::load, Qt::QueuedConnection);
    }
}

void PanelView::load()
{
    m_isDue = false;
    m_panel.reset();
    m_context.reset();
    m_problem = {};
    QQmlEngine* engine = qmlEngine(this);
    if (engine == nullptr || m_pluginUuid.isEmpty() || m_objectId.isEmpty()) {
        Q_EMIT panelChanged();
        return;
    }
    const std::optional<PanelDocument> document =
        PanelDocument::ofPlugin(m_pluginUuid, {m_name, m_objectId, m_reference});
    if (!document) {
        fail(tr("there is no maintenance panel for this device"), tr("its plugin %1 brings none").arg(m_pluginUuid),
             {});
        return;
    }
    QQmlComponent component(engine);
    component.setData(document->qml(), document->url());
    m_context = std::make_unique<QQmlContext>(engine);
    QObject* root = component.create(m_context.get());
    if (root == nullptr) {
        fail(tr("the maintenance panel of this device cannot be shown"), told(component.errors()),
             tr("mend the panel's document in the plugin %1").arg(m_pluginUuid));
        return;
    }
    m_panel.reset(qobject_cast<QQuickItem*>(root));
    if (m_panel == nullptr) {
        const std::unique_ptr<QObject> unwanted(root);
        fail(tr("the maintenance panel of this device cannot be shown"),
             tr("its root is a %1, which is nothing to be shown")
                 .arg(QLatin1String(unwanted->metaObject()->className())),
             tr("mend the panel's document in the plugin %1").arg(m_pluginUuid));
        return;
    }
    m_panel->setParentItem(this);
    m_panel->setSize(size());
    const bool wasInSight = isVisible();
    Q_EMIT panelChanged();
    if (wasInSight) {
        refresh();
    }
}

void PanelView::refresh()
{
    if (m_panel != nullptr && m_panel->metaObject()->indexOfSignal("updateData()") >= 0) {
        QMetaObject::invokeMethod(m_panel.get(), c_updateData);
    }
}

void PanelView::geometryChanged(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChanged(newGeometry, oldGeometry);
    if (m_panel != nullptr) {
        m_panel->setSize(newGeometry.size());
    }
}

void PanelView::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged && data.boolValue) {
        refresh();
    }
}

void PanelView::fail(const QString& what, const QString& cause, const QString& mend)
{
    m_problem = {Problem::Kind::SetUp, QStringLiteral("panel"), what, cause, mend};
    Q_EMIT panelChanged();
}
