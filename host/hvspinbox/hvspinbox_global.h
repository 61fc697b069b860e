#pragma once

#include <QtCore/qglobal.h>

// Visible outside the library hvspinbox: defined by it, imported by everybody else.
#ifdef HVSPINBOX_BUILD
#define HVSPINBOX_EXPORT Q_DECL_EXPORT
#else
#define HVSPINBOX_EXPORT Q_DECL_IMPORT
#endif
