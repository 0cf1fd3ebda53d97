#include "loadable_plugin.h"

class NoCommandPlugin : public LoadablePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.test.NoCommandPlugin")

public:
    void initPluginCommands() override {}
};

#include "no_command_plugin.moc"
