#pragma once

#include <QtCore/qglobal.h>

// Visible outside the library hvparser: defined by it, imported by everybody else.
#ifdef HVPARSER_BUILD
#define HVPARSER_EXPORT Q_DECL_EXPORT
#else
#define HVPARSER_EXPORT Q_DECL_IMPORT
#endif
