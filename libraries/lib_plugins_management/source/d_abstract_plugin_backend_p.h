#pragma once

#include <QPointer>

#include <lib_plugins_management/d_abstract_plugin_backend.h>

class DAbstractPlugin;
class DTreatmentQueue;

/// The fields of a panel backend, and the door by which the treatment queue reaches it.
class DAbstractPluginBackendPrivate
{
public:
    explicit DAbstractPluginBackendPrivate(DAbstractPluginBackend& backend);

    static DAbstractPluginBackendPrivate* get(const DAbstractPluginBackend& backend) { return backend.d_ptr.data(); }

    /// Looks for the device of that object id, and listens for it to come.
    void attach();
    void listenTo(DTreatmentQueue& each);
    void setDevice(DAbstractPlugin* found);
    void announceDevice();
    void updateConnected();
    /// Gives the backend the one reply to a treatment. It may delete the backend.
    void answer(int index, const QString& treatment, const QMap<QString, QVariant>& reply);

    DAbstractPluginBackend& q;
    QString name;
    QString objectId;
    QString reference;
    bool isConnected = false;
    bool announcesDevice = false; // in a later turn
    int pending = 0;
    QPointer<DTreatmentQueue> queue;
    QPointer<DAbstractPlugin> device;
};
