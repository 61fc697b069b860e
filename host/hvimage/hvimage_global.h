#pragma once

#include <QtCore/qglobal.h>

// Visible outside the library hvimage: defined by it, imported by everybody else.
#ifdef HVIMAGE_BUILD
#define HVIMAGE_EXPORT Q_DECL_EXPORT
#else
#define HVIMAGE_EXPORT Q_DECL_IMPORT
#endif
