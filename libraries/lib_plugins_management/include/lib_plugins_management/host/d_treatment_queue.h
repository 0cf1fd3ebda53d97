#pragma once

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QVector>

#include <deque>
#include <map>
#include <memory>

#include <lib_plugins_management/export.h>

class DAbstractPlugin;
class DAbstractPluginBackend;
class DInstanceRegistry;
class DOrder;
class DRouter;

/// Runs what panel backends ask for: the treatments of one device one at a time and in order, each as a command of that
/// device, each answered once.
///
/// Panel backends are made by a QML engine, which cannot hand them their host: a backend finds the queue that has its
/// device among those of all hosts of the process.
class LIB_PLUGINS_MANAGEMENT_EXPORT DTreatmentQueue : public QObject
{
    Q_OBJECT

public:
    /// The router and the registry outlive the queue.
    DTreatmentQueue(DRouter& router, const DInstanceRegistry& registry, QObject* parent = nullptr);
    ~DTreatmentQueue() override;

    /// One for each host of this process, the oldest first.
    static const QVector<DTreatmentQueue*>& all();

    /// Null when the host has no such device (yet).
    DAbstractPlugin* findDevice(const QString& objectId) const;
    /// The line of the device's driver is open.
    bool isConnected(const DAbstractPlugin& device) const;

    void queue(DAbstractPluginBackend& backend, DAbstractPlugin& device, int index, const QString& treatment,
               const QMap<QString, QVariant>& parameters);

    /// The host tells; of a plugin that is destroyed when the registry does not know it any more.
    void instanceAdded(DAbstractPlugin& instance);
    void pluginDestroyed(DAbstractPlugin& plugin);
    void propertyChanged(DAbstractPlugin& plugin, const QString& name);

Q_SIGNALS:
    void sigInstanceAdded(DAbstractPlugin* instance);
    void sigInstanceRemoved(DAbstractPlugin* instance);
    void sigConnectionChanged();
    /// A treatment runs from now on.
    void sigTreatmentStarted(DAbstractPlugin* device, const QString& treatment);
    /// It has ended; each that was started does, unless its device is gone. The backend is answered next.
    void sigTreated(DAbstractPlugin* device, const QString& treatment, const QVariantMap& parameters,
                    const QVariantMap& reply);

private:
    struct Treatment
    {
        quint64 id;
        QPointer<DAbstractPluginBackend> backend; // null: the panel has gone, nobody wants the reply
        int index;
        QString name;
        QMap<QString, QVariant> parameters;
    };
    struct Line
    {
        std::deque<Treatment> waiting; // the first one runs
        std::unique_ptr<DOrder> running;
    };

    void runNext(DAbstractPlugin* device);
    void answer(DAbstractPlugin* device, quint64 id, const QMap<QString, QVariant>& reply);

    DRouter& m_router;
    const DInstanceRegistry& m_registry;
    std::map<DAbstractPlugin*, Line> m_lines; // by device, none of them empty
    quint64 m_lastTreatment = 0;
};
