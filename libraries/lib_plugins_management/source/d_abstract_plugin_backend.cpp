#include <lib_plugins_management/d_abstract_plugin_backend.h>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_treatment_queue.h>

#include "d_abstract_plugin_backend_p.h"

DAbstractPluginBackendPrivate::DAbstractPluginBackendPrivate(DAbstractPluginBackend& backend) : q(backend) {}

void DAbstractPluginBackendPrivate::attach()
{
    DAbstractPlugin* found = nullptr;
    for (DTreatmentQueue* each : DTreatmentQueue::all()) {
        listenTo(*each);
        if (found == nullptr) {
            found = each->findDevice(objectId);
            queue = found == nullptr ? nullptr : each;
        }
    }
    if (found != device.data()) {
        setDevice(found);
    }
}

/// Again is no error: a device may come to any of the hosts.
void DAbstractPluginBackendPrivate::listenTo(DTreatmentQueue& each)
{
    QObject::disconnect(&each, nullptr, &q, nullptr);
    QObject::connect(&each, &DTreatmentQueue::sigInstanceAdded, &q, [this] { attach(); });
    QObject::connect(&each, &DTreatmentQueue::sigInstanceRemoved, &q, [this](const DAbstractPlugin* instance) {
        if (instance == device.data()) {
            setDevice(nullptr);
        }
    });
    QObject::connect(&each, &DTreatmentQueue::sigConnectionChanged, &q, [this] { updateConnected(); });
}

void DAbstractPluginBackendPrivate::setDevice(DAbstractPlugin* found)
{
    device = found;
    updateConnected();
    if (found != nullptr && !announcesDevice) {
        announcesDevice = true;
        QMetaObject::invokeMethod(
            &q, [this] { announceDevice(); }, Qt::QueuedConnection);
    }
}

void DAbstractPluginBackendPrivate::announceDevice()
{
    announcesDevice = false;
    if (!device.isNull()) {
        Q_EMIT q.abstractBackendInitialized();
    }
}

void DAbstractPluginBackendPrivate::updateConnected()
{
    const bool connected = !queue.isNull() && !device.isNull() && queue->isConnected(*device);
    if (connected != isConnected) {
        isConnected = connected;
        Q_EMIT q.isConnectedChanged();
    }
}

void DAbstractPluginBackendPrivate::answer(int index, const QString& treatment, const QMap<QString, QVariant>& reply)
{
    --pending;
    const QPointer<DAbstractPluginBackend> guard(&q);
    guard->applyTreatmentReply(index, treatment, reply);
    if (!guard.isNull()) {
        guard->treatmentReleased(index);
    }
}

DAbstractPluginBackend::DAbstractPluginBackend(const QString& backendName, QObject* parent)
    : QObject(parent), d_ptr(new DAbstractPluginBackendPrivate(*this))
{
    setObjectName(backendName);
}

DAbstractPluginBackend::~DAbstractPluginBackend() = default;

QString DAbstractPluginBackend::name() const
{
    return d_ptr->name;
}

void DAbstractPluginBackend::setName(const QString& name)
{
    if (d_ptr->name != name) {
        d_ptr->name = name;
        Q_EMIT nameChanged();
    }
}

QString DAbstractPluginBackend::objectId() const
{
    return d_ptr->objectId;
}

void DAbstractPluginBackend::setObjectId(const QString& objectId)
{
    if (d_ptr->objectId != objectId) {
        d_ptr->objectId = objectId;
        d_ptr->attach();
        Q_EMIT objectIdChanged();
    }
}

QString DAbstractPluginBackend::reference() const
{
    return d_ptr->reference;
}

void DAbstractPluginBackend::setReference(const QString& reference)
{
    if (d_ptr->reference != reference) {
        d_ptr->reference = reference;
        Q_EMIT referenceChanged();
    }
}

bool DAbstractPluginBackend::isConnected() const
{
    return d_ptr->isConnected;
}

bool DAbstractPluginBackend::queueTreatment(int index, const QString& treatment, const QMap<QString, QVariant>& params)
{
    if (d_ptr->device.isNull() || d_ptr->queue.isNull()) {
        return false;
    }
    ++d_ptr->pending;
    d_ptr->queue->queue(*this, *d_ptr->device, index, treatment, params);
    return true;
}

bool DAbstractPluginBackend::hasPendingTreatments() const
{
    return d_ptr->pending > 0;
}

bool DAbstractPluginBackend::applyTreatmentReply(int index, const QString& treatment,
                                                 const QMap<QString, QVariant>& reply)
{
    Q_UNUSED(index)
    Q_UNUSED(treatment)
    Q_UNUSED(reply)
    return false;
}

void DAbstractPluginBackend::treatmentReleased(int index)
{
    Q_UNUSED(index)
}
