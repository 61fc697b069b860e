#pragma once

#include <QtCore/qglobal.h>

// Visible outside the library hvdicom: defined by it, imported by everybody else.
#ifdef HVDICOM_BUILD
#define HVDICOM_EXPORT Q_DECL_EXPORT
#else
#define HVDICOM_EXPORT Q_DECL_IMPORT
#endif
