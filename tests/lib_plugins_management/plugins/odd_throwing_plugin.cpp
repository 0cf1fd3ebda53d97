#include "loadable_plugin.h"

class OddThrowingPlugin : public LoadablePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.test.OddThrowingPlugin")

public:
    OddThrowingPlugin() { throw 42; }
};

#include "odd_throwing_plugin.moc"
