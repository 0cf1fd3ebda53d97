#include "loadable_plugin.h"

class OtherIidPlugin : public LoadablePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.test.SomethingElse")
};

#include "other_iid_plugin.moc"
