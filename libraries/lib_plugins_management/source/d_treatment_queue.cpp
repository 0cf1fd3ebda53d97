#include <lib_plugins_management/host/d_treatment_queue.h>

#include <QUuid>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/d_abstract_plugin_backend.h>
#include <lib_plugins_management/host/d_instance_registry.h>
#include <lib_plugins_management/host/d_order.h>
#include <lib_plugins_management/host/d_router.h>

#include "d_abstract_plugin_backend_p.h"

namespace {

/// A treatment that has not ended by itself is ended then: a command may wait for a wrench that never answers.
constexpr int c_treatmentLimitMs = 15000;

const QString c_successResult = QStringLiteral("cmd_success");
const QString c_connectedProperty = QStringLiteral("connected"); // of a driver: its line is open

QVector<DTreatmentQueue*>& queues()
{
    static QVector<DTreatmentQueue*> list;
    return list;
}

} // namespace

DTreatmentQueue::DTreatmentQueue(DRouter& router, const DInstanceRegistry& registry, QObject* parent)
    : QObject(parent), m_router(router), m_registry(registry)
{
    queues().append(this);
}

DTreatmentQueue::~DTreatmentQueue()
{
    queues().removeOne(this);
}

const QVector<DTreatmentQueue*>& DTreatmentQueue::all()
{
    return queues();
}

DAbstractPlugin* DTreatmentQueue::findDevice(const QString& objectId) const
{
    const QUuid uuid = QUuid::fromString(objectId);
    return uuid.isNull() ? nullptr : m_registry.byObjectUuid(uuid);
}

bool DTreatmentQueue::isConnected(const DAbstractPlugin& device) const
{
    const DAbstractPlugin* driver = m_registry.driverOf(device);
    return driver != nullptr && driver->getProperty(c_connectedProperty, QVariant(false)).toBool();
}

void DTreatmentQueue::queue(DAbstractPluginBackend& backend, DAbstractPlugin& device, int index,
                            const QString& treatment, const QMap<QString, QVariant>& parameters)
{
    Line& line = m_lines[&device];
    line.waiting.push_back({++m_lastTreatment, &backend, index, treatment, parameters});
    if (line.waiting.size() == 1) {
        runNext(&device);
    }
}

void DTreatmentQueue::instanceAdded(DAbstractPlugin& instance)
{
    Q_EMIT sigInstanceAdded(&instance);
}

void DTreatmentQueue::pluginDestroyed(DAbstractPlugin& plugin)
{
    const auto line = m_lines.find(&plugin);
    if (line != m_lines.end()) {
        // Each treatment is answered, also these: from a later turn, as always.
        const std::deque<Treatment> lost = std::move(line->second.waiting);
        m_lines.erase(line);
        for (const Treatment& treatment : lost) {
            if (!treatment.backend.isNull()) {
                QMetaObject::invokeMethod(
                    treatment.backend,
                    [treatment] {
                        DAbstractPluginBackendPrivate::get(*treatment.backend)
                            ->answer(treatment.index, treatment.name, {{c_successResult, false}});
                    },
                    Qt::QueuedConnection);
            }
        }
    }
    Q_EMIT sigInstanceRemoved(&plugin);
    Q_EMIT sigConnectionChanged(); // it may have been a driver
}

void DTreatmentQueue::propertyChanged(DAbstractPlugin& plugin, const QString& name)
{
    Q_UNUSED(plugin)
    if (name == c_connectedProperty) {
        Q_EMIT sigConnectionChanged();
    }
}

void DTreatmentQueue::runNext(DAbstractPlugin* device)
{
    Line& line = m_lines[device];
    const Treatment& next = line.waiting.front();
    const quint64 id = next.id;
    const QString name = next.name;
    line.running = m_router.createOrder(*device, next.name, next.parameters);
    if (line.running == nullptr) {
        QMetaObject::invokeMethod(
            this,
            [this, device, id] {
                answer(device, id, {{c_successResult, false}});
            },
            Qt::QueuedConnection);
        Q_EMIT sigTreatmentStarted(device, name);
        return;
    }
    connect(line.running.get(), &DOrder::sigFinished, this, [this, device, id] {
        const DOrder& ended = *m_lines[device].running;
        QMap<QString, QVariant> reply = ended.results();
        if (ended.outcome() != DOrder::Outcome::Finished) {
            reply.insert(c_successResult, false);
        }
        answer(device, id, reply);
    });
    line.running->start(c_treatmentLimitMs);
    Q_EMIT sigTreatmentStarted(device, name);
}

void DTreatmentQueue::answer(DAbstractPlugin* device, quint64 id, const QMap<QString, QVariant>& reply)
{
    auto line = m_lines.find(device);
    // The device may have gone meanwhile, and its treatments were answered; another may have its address.
    const auto hasGone = [&] { return line == m_lines.end() || line->second.waiting.front().id != id; };
    if (hasGone()) {
        return;
    }
    const Treatment answered = line->second.waiting.front();
    const QPointer<DTreatmentQueue> self(this);
    Q_EMIT sigTreated(device, answered.name, answered.parameters, reply);
    if (self.isNull()) {
        return; // likewise
    }
    line = m_lines.find(device);
    if (hasGone()) {
        return;
    }
    line->second.waiting.pop_front();
    if (DOrder* ended = line->second.running.release()) {
        ended->deleteLater(); // it is telling us of its end
    }
    if (!line->second.waiting.empty()) {
        runNext(device);
    } else {
        m_lines.erase(line);
    }
    if (!answered.backend.isNull()) {
        DAbstractPluginBackendPrivate::get(*answered.backend)->answer(answered.index, answered.name, reply);
    }
}
