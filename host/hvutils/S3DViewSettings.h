#pragma once

#include <QString>

// Preferences of the 3D views.
struct S3DViewSettings
{
    int nFontPointSize = 10;  // point size of text drawn into a view
    QString strFontFamily;    // empty: the application's font
    QString strTissueRange;   // upper end of values taken from CT scans: "Tissue", or "Metal" for all
};
