#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

/// Bytes that a caller gave as a byte array or as text (then as UTF-8); empty for any other type.
inline QByteArray bytesOf(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QByteArray:
        return value.toByteArray();
    case QMetaType::QString:
        return value.toString().toUtf8();
    default:
        return {};
    }
}
