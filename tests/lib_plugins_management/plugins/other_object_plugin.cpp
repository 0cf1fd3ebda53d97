#include "loadable_plugin.h"

class OtherObjectPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.test.OtherObjectPlugin")
};

#include "other_object_plugin.moc"
