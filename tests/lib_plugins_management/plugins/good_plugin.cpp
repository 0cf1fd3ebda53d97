#include "loadable_plugin.h"

class GoodPlugin : public LoadablePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.test.GoodPlugin")
};

#include "good_plugin.moc"
