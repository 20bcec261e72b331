#pragma once

#include <QtGlobal>

#if defined(ZTK_BUILD)
#define ZTK_EXPORT Q_DECL_EXPORT
#else
#define ZTK_EXPORT Q_DECL_IMPORT
#endif
