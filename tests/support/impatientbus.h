#pragma once

#include "tests/support/childprocess.h"

#include <QTemporaryDir>

namespace testsupport {

/**
 * A session bus of its own that answers for services which keep a caller waiting for more than a
 * second, where the usual limit is 25. Becomes the process's session bus; start it before anything
 * connects to one.
 */
class ImpatientBus
{
public:
    ~ImpatientBus();

    bool start();

private:
    QTemporaryDir m_folder;
    ChildProcess m_daemon;
};

} // namespace testsupport
