#pragma once

#include <QMap>
#include <QString>

#include <lib_plugins_management/d_abstract_plugin_backend.h>

#include "olm_d_haitor_channel.h"

/// What is behind the maintenance panel: its buttons become treatments that the host queues, replies to readings go to
/// the channels. Made and owned by the panel's QML; used on the thread of its engine only.
class BeMaintenanceDeviceHaitor : public DAbstractPluginBackend
{
    Q_OBJECT
    Q_PROPERTY(QString connectionPath READ connectionPath NOTIFY connectionPathChanged)
    Q_PROPERTY(QString version READ version NOTIFY versionChanged)
    Q_PROPERTY(OLM_DHaitorChannel* statusChannelsModel READ statusChannelsModel NOTIFY channelsModelChanged)

public:
    /// The index of each command's treatment; 0 for one that is not here. Channels have their positions as indexes.
    static const QMap<QString, int> c_commandsChannelsIndex;

    explicit BeMaintenanceDeviceHaitor(QObject* parent = nullptr);

    const QString& connectionPath() const { return m_connectionPath; }
    void setConnectionPath(const QString& connectionPath);
    const QString& version() const { return m_version; }
    void setVersion(const QString& version);
    OLM_DHaitorChannel* statusChannelsModel() { return &m_statusChannelsModel; }

    /// Asks for the value of each channel; does nothing while treatments are pending.
    Q_INVOKABLE void updateChannelsValue();
    /// Asks to switch the channel at that position. A request that is refused is made again from the event loop.
    Q_INVOKABLE void clickedOnChannel(int channelIndex);
    Q_INVOKABLE void setLock(const bool& lockStatus);
    /// program: a whole number of at least 0; any other text is ignored.
    Q_INVOKABLE void setProgram(const QString& program);
    Q_INVOKABLE void setDirection(const bool& directionStatus);
    /// Lets the channels go.
    Q_INVOKABLE void resetBackend();

    void initBackend();
    /// Null when there is no such position.
    QSharedPointer<DHaitorChannel> getChannelAt(int index) const;

    /// The reply to a reading goes to the channel at that position. True: the treatment has succeeded.
    bool applyTreatmentReply(int index, const QString& treatment, const QMap<QString, QVariant>& reply) override;

Q_SIGNALS:
    void connectionPathChanged();
    void versionChanged();
    void channelsModelChanged();
    /// The click on that channel was refused and is to be tried again.
    void delayingClickedOnChannel(int channelIndex);

private:
    bool queueCommand(const QString& command, const QString& parameter, int value);

    QString m_connectionPath;
    QString m_version;
    OLM_DHaitorChannel m_statusChannelsModel;
};
