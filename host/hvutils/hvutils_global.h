#pragma once

#include <QtCore/qglobal.h>

// Visible outside the library hvutils: defined by it, imported by everybody else.
#ifdef HVUTILS_BUILD
#define HVUTILS_EXPORT Q_DECL_EXPORT
#else
#define HVUTILS_EXPORT Q_DECL_IMPORT
#endif
