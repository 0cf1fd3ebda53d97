#pragma once

#include <QAbstractListModel>
#include <QVector>

#include "device_model.h"

/// The devices of the window. It owns them.
class DeviceList : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count CONSTANT)

public:
    enum Role {
        DeviceRole = Qt::UserRole + 1 ///< "device": a DeviceModel
    };

    /// One device for each, see readDevices(). They record into the history of the first one's data folder.
    explicit DeviceList(const QList<Settings>& devices, QObject* parent = nullptr);
    ~DeviceList() override;

    int count() const { return m_devices.size(); }
    /// Null when there is no such row.
    Q_INVOKABLE DeviceModel* at(int row) const;

    /// Ends what runs on each of them in an orderly way, and answers with sigAllEnded from a later turn of the event
    /// loop. Nothing is begun any more.
    Q_INVOKABLE void endAll();
    /// The texts are to be in that language from now on: it is installed.
    void setLanguage(const QString& language);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void sigAllEnded();

private:
    void tellWhenAllHaveEnded();

    QVector<DeviceModel*> m_devices;
    bool m_isEnding = false;
    bool m_hasEnded = false;
};
