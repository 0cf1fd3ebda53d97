#pragma once

#include "d_haitor_channel.h"
#include "q_object_list_model_base.h"

/// The channels of a maintenance backend, by position. It has no extra roles.
class OLM_DHaitorChannel : public __qobjectsqmllist::QObjectListModelBase<DHaitorChannel>
{
    Q_OBJECT
    Q_PROPERTY(int length READ count NOTIFY changed)
    Q_PROPERTY(bool isEmpty READ hasNoObjects NOTIFY changed)

public:
    explicit OLM_DHaitorChannel(QObject* parent = nullptr);

    Q_INVOKABLE QVariant header(int section) const;
    /// The channel at that position, a DHaitorChannel*; it stays the model's.
    Q_INVOKABLE QVariant item(int index) const;

Q_SIGNALS:
    /// By the owner, when it has emptied or filled the list.
    void changed();
};
