#pragma once

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

/// What a backend has asked its host for.
struct QueuedTreatment
{
    int index;
    QString treatment;
    QMap<QString, QVariant> params;

    bool operator==(const QueuedTreatment& other) const
    {
        return index == other.index && treatment == other.treatment && params == other.params;
    }
};

/// Another host's base of panel backends, with the same face: it notes what is queued, and the test says what becomes
/// of it.
class DAbstractPluginBackend : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY nameChanged)
    Q_PROPERTY(QString objectId MEMBER m_objectId NOTIFY objectIdChanged)
    Q_PROPERTY(QString reference MEMBER m_reference NOTIFY referenceChanged)
    Q_PROPERTY(bool isConnected MEMBER m_isConnected NOTIFY isConnectedChanged)

public:
    DAbstractPluginBackend(const QString& backendName, QObject* parent) : QObject(parent), m_backendName(backendName) {}

    bool queueTreatment(int index, const QString& treatment, const QMap<QString, QVariant>& params)
    {
        queued.append({index, treatment, params});
        return isAccepting;
    }
    bool hasPendingTreatments() const { return isPending; }
    virtual bool applyTreatmentReply(int, const QString&, const QMap<QString, QVariant>&) { return false; }
    virtual void treatmentReleased(int) {}

    QString backendName() const { return m_backendName; }

    QList<QueuedTreatment> queued; ///< refused ones, too
    bool isAccepting = true;
    bool isPending = false;

Q_SIGNALS:
    void abstractBackendInitialized();
    void nameChanged();
    void objectIdChanged();
    void referenceChanged();
    void isConnectedChanged();

private:
    QString m_backendName;
    QString m_name;
    QString m_objectId;
    QString m_reference;
    bool m_isConnected = false;
};
