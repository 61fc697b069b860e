#pragma once

#include <QMetaType>

/// State of the tool buttons of a 3D view. A plug-in reads nothing of it; it may clear the measuring flag in
/// a window's copy and hand that to CHVSChildWindow::apply3DControls.
struct S3DControls
{
    bool m_bMeasuring = false;                     ///< distances are being measured
    bool m_bShowSlice[3] = {false, false, false};  ///< the slice planes across x, y and z are shown
    bool m_bShowBoundingBox = true;                ///< frames around the objects are drawn
    bool m_bShowAxes = true;                       ///< the axes of orientation are drawn
    bool m_bShowScaleBar = true;                   ///< the bar of a round length is drawn
};

Q_DECLARE_METATYPE(S3DControls*)
