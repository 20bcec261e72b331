#pragma once

#include "plugin/pagetable.h"

#include <QString>

namespace testsupport {

/** The module's page of that name, newly made as for its list. For tests that link the module. */
inline QWidget *newPage(const QString &name)
{
    for (const PageEntry &entry : pageTable())
        if (name == QLatin1String(entry.name))
            return entry.newPage();
    qFatal("the module has no page \"%s\"", qPrintable(name));
}

} // namespace testsupport
