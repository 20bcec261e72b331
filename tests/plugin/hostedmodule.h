#pragma once

#include "tests/support/fakeframe.h"
#include "tests/support/widgets.h"

#include <zcc/moduleinterface.h>

#include <QPluginLoader>

#include <memory>

namespace testsupport {

/** The built module, or another file that the environment variable of that name has. */
inline QString moduleFile()
{
    return qEnvironmentVariable("MODULE_FILE", QStringLiteral(MODULE_FILE));
}

/** That module, loaded by a host that knows its interface only, and its frame. */
struct HostedModule
{
    HostedModule()
        : module(qobject_cast<zccV20::ModuleInterface *>(loader.instance()))
        , frame(std::make_unique<FakeFrame>(FakeFrame::OnDemand))
    {
        if (module)
            module->setFrameProxy(frame.get());
    }

    ~HostedModule()
    {
        frame.reset();
        flushDeferredDeletes();
        delete loader.instance();
    }

    Q_DISABLE_COPY(HostedModule)

    QWidget *pushed(int index) const { return frame->pushes().at(index).widget; }

    QPluginLoader loader{moduleFile()};
    zccV20::ModuleInterface *module; ///< Null when it cannot be loaded; the loader says why.
    std::unique_ptr<FakeFrame> frame;
};

} // namespace testsupport
