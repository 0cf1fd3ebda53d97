#pragma once

#include <QMap>
#include <QObject>
#include <QScopedPointer>
#include <QString>
#include <QVariant>

#include <lib_plugins_management/export.h>

class DAbstractPluginBackendPrivate;

/// Base of the object behind a maintenance panel: it finds the panel's device and queues treatments for it. Owned by
/// the panel's QML engine; lives on its thread, which is the host's.
class LIB_PLUGINS_MANAGEMENT_EXPORT DAbstractPluginBackend : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QString objectId READ objectId WRITE setObjectId NOTIFY objectIdChanged)
    Q_PROPERTY(QString reference READ reference WRITE setReference NOTIFY referenceChanged)
    Q_PROPERTY(bool isConnected READ isConnected NOTIFY isConnectedChanged)

public:
    DAbstractPluginBackend(const QString& backendName, QObject* parent);
    ~DAbstractPluginBackend() override;

    QString name() const;
    void setName(const QString& name);
    /// The instance uuid of the device, as text. Setting it looks the device up, now or as soon as the host has it.
    QString objectId() const;
    void setObjectId(const QString& objectId);
    QString reference() const;
    void setReference(const QString& reference);
    /// The device is there and its driver's line is open.
    bool isConnected() const;

    /// Asks for a treatment: a command of the device, run in its turn. True: accepted, and exactly one
    /// applyTreatmentReply() with the same index and name will come. False: the backend has no device.
    bool queueTreatment(int index, const QString& treatment, const QMap<QString, QVariant>& params);
    /// A treatment of this backend is waiting or running.
    bool hasPendingTreatments() const;

    virtual bool applyTreatmentReply(int index, const QString& treatment, const QMap<QString, QVariant>& reply);
    /// Called after applyTreatmentReply() of the same treatment: its place in the queue is free again.
    virtual void treatmentReleased(int index);

Q_SIGNALS:
    /// The device has been found; from a later turn of the event loop than setObjectId().
    void abstractBackendInitialized();
    void nameChanged();
    void objectIdChanged();
    void referenceChanged();
    void isConnectedChanged();

private:
    friend class DAbstractPluginBackendPrivate;
    QScopedPointer<DAbstractPluginBackendPrivate> d_ptr;
};
