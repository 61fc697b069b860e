#pragma once

#include <QtCore/qglobal.h>

#ifdef HVAPI_BUILD
#define HVAPI_EXPORT Q_DECL_EXPORT
#else
#define HVAPI_EXPORT Q_DECL_IMPORT
#endif
