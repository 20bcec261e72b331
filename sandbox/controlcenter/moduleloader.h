#pragma once

#include <zcc/moduleinterface.h>

#include <QString>

namespace controlcenter {

/** What came of loading a module: the module, or a sentence that says why there is none. */
struct LoadedModule
{
    zccV20::ModuleInterface *module = nullptr; ///< Lives as long as the process.
    QString error;
};

/**
 * Loads the plugin file @p path after checking, without running any of its code, that its metadata
 * names the control center's interface and an "api" that this window supports.
 */
LoadedModule loadModule(const QString &path);

/** The file of the module that this process has loaded; empty as long as there is none. */
QString loadedModuleFile();

} // namespace controlcenter
