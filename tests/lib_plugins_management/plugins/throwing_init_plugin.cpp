#include "loadable_plugin.h"

#include <stdexcept>

class ThrowingInitPlugin : public LoadablePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.test.ThrowingInitPlugin")

public:
    void initPluginCommands() override
    {
        LoadablePlugin::initPluginCommands();
        throw std::runtime_error("half a table");
    }
};

#include "throwing_init_plugin.moc"
