#pragma once

#include <QObject>
#include <QString>

#include <lib_utilities/export.h>

/// The host's base object: a QObject that is named when it is made.
class LIB_UTILITIES_EXPORT DObject : public QObject
{
    Q_OBJECT

public:
    explicit DObject(const QString& objectName, QObject* parent = nullptr);
};
