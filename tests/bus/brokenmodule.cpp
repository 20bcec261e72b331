// Stands in for a module whose libraries do not fit, or that crashes when it is loaded.

#include <zcc/moduleinterface.h>

#include <cstdlib>

#if defined(CRASHES)
static void begin()
{
    std::abort();
}
#else
void begin(); // in no library
#endif

class TavrenAIAssitantControlPlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID ZCC_MODULE_INTERFACE_IID FILE "plugin/tavrenaiassitantcontrolplugin.json")

public:
    TavrenAIAssitantControlPlugin() { begin(); }
};

#include "brokenmodule.moc"
