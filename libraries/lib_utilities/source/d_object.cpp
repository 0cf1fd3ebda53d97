#include <lib_utilities/d_object.h>

DObject::DObject(const QString& objectName, QObject* parent) : QObject(parent)
{
    setObjectName(objectName);
}
