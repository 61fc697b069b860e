#pragma once

#include <QtCore/qglobal.h>

// Visible outside the library HVReconSurfaceVolume: defined by it, imported by everybody else.
#ifdef HVRECONSURFACEVOLUME_BUILD
#define HVRECONSURFACEVOLUME_EXPORT Q_DECL_EXPORT
#else
#define HVRECONSURFACEVOLUME_EXPORT Q_DECL_IMPORT
#endif
