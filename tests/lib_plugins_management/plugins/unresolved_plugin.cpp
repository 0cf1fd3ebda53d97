#include "loadable_plugin.h"

void functionOfALibraryThatIsNotThere();

class UnresolvedPlugin : public LoadablePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.test.UnresolvedPlugin")

public:
    void initPluginCommands() override
    {
        LoadablePlugin::initPluginCommands();
        if (property("never").isValid()) {
            functionOfALibraryThatIsNotThere();
        }
    }
};

#include "unresolved_plugin.moc"
