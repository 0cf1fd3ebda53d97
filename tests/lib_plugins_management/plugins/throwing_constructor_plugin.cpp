#include "loadable_plugin.h"

#include <stdexcept>

class ThrowingConstructorPlugin : public LoadablePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.test.ThrowingConstructorPlugin")

public:
    ThrowingConstructorPlugin() { throw std::runtime_error("no licence file"); }
};

#include "throwing_constructor_plugin.moc"
