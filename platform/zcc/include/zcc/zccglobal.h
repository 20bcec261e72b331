#pragma once

#include <QtGlobal>

#if defined(ZCC_BUILD)
#define ZCC_EXPORT Q_DECL_EXPORT
#else
#define ZCC_EXPORT Q_DECL_IMPORT
#endif
