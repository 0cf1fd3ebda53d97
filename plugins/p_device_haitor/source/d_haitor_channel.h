#pragma once

#include <QMap>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <lib_utilities/d_object.h>

/// A device variable that a maintenance panel shows and toggles. Held in shared pointers, one of them by the list model
/// that shows it; used on the thread of the panel's backend only.
class DHaitorChannel : public DObject
{
    Q_OBJECT
    Q_PROPERTY(QString channelId READ id NOTIFY idChanged)
    Q_PROPERTY(QString name READ name NOTIFY nameChanged)
    Q_PROPERTY(QString label READ label NOTIFY labelChanged)
    Q_PROPERTY(QVariant value READ value NOTIFY valueChanged)
    Q_PROPERTY(EnChannelType type READ type NOTIFY typeChanged)

public:
    enum EnChannelType : qint32 {
        CeCtUnknown = 0,
        CeCtString = 1,
        CeCtBool = 2,
        _CeCtNbr = 3 // NOLINT(bugprone-reserved-identifier): the host's name for the count of kinds
    };
    Q_ENUM(EnChannelType)

    /// The types of the channels that are known by their ids.
    static const QMap<QString, EnChannelType> c_channelTypesMap;
    /// The shown text of each code of the channel "direction", by code from 0.
    static const QStringList c_directionCodeToString;

    explicit DHaitorChannel(QObject* parent = nullptr);

    /// A channel without a parent from its description: "id", "name", and under "value" a list of attributes, each a
    /// map of "id" and "value". An attribute "type" gives the channel the type that its id stands for.
    static QSharedPointer<DHaitorChannel> create(const QMap<QString, QVariant>& info);

    const QString& id() const { return m_id; }
    void setId(const QString& id);
    const QString& name() const { return m_name; }
    void setName(const QString& name);
    const QString& label() const { return m_label; }
    void setLabel(const QString& label);
    EnChannelType type() const { return m_type; }
    void setType(EnChannelType type);

    /// The treatment that reads the channel's value.
    const QString& readCommand() const { return m_readCommand; }
    void setReadCommand(const QString& readCommand) { m_readCommand = readCommand; }

    /// The value as it is shown.
    const QVariant& value() const { return m_value; }
    /// Takes a value as a reply carries it. False, and nothing changes, when it is neither a list nor a truth value.
    bool setValue(const QVariant& value);

    /// Further attributes that the description gave.
    const QMap<QString, QVariant>& attributes() const { return m_attributes; }

Q_SIGNALS:
    void idChanged();
    void nameChanged();
    void labelChanged();
    void valueChanged();
    void typeChanged();
    /// Never emitted by the plugin; for a panel that switches a channel.
    void sigSwitchChannelValue(const QString& channelId);

private:
    void setAttributes(const QVariantList& attributes);

    QString m_id;
    QString m_name;
    QString m_label;
    QString m_readCommand;
    QVariant m_value;
    EnChannelType m_type = CeCtUnknown;
    QMap<QString, QVariant> m_attributes;
};
