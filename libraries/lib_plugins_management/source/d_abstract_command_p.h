#pragma once

#include <QHash>
#include <QMap>
#include <QPointer>
#include <QVector>

#include <lib_plugins_management/d_abstract_command.h>

class IOrder;

/// The fields of a command, and the door by which the host's own classes reach them.
class DAbstractCommandPrivate
{
public:
    struct Declaration
    {
        QString name;
        QString type;
        QString description;
        QVariant defaultValue;
    };
    struct Waiting
    {
        ReplyDelegate onReply;
        bool lasting = false; // more than one reply may come
    };

    static DAbstractCommandPrivate* get(const DAbstractCommand& command) { return command.d_ptr.data(); }

    /// Null when no order is linked or the order is gone.
    IOrder* order() const { return orderObject.isNull() ? nullptr : linkedOrder; }
    /// Forgets order and delegates without a word to anybody: the plugin or the order is gone.
    void abandon();

    QString name;
    QString stopName;
    QString description;
    QVector<Declaration> parameters;
    QVector<Declaration> results;
    QMap<QString, QVariant> arguments;
    QMap<QString, QVariant> resultValues; // of the run: declared defaults, then what was published
    QHash<quint64, Waiting> delegates;    // by instruction
    QPointer<QObject> orderObject;
    IOrder* linkedOrder = nullptr; // the same object
    bool running = false;
};
