#include "olm_d_haitor_channel.h"

OLM_DHaitorChannel::OLM_DHaitorChannel(QObject* parent) : QObjectListModelBase(parent) {}

QVariant OLM_DHaitorChannel::header(int section) const
{
    return headerData(section, Qt::Horizontal, Qt::DisplayRole);
}

QVariant OLM_DHaitorChannel::item(int index) const
{
    return objectForQml(index);
}
