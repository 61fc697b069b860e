#pragma once

#include "hvimage/CILPalette.h"
#include "hvimage/HVS_COLORTABLE_TYPES.h"
#include "hvutils/hvutils_global.h"

#include <QOpenGLWidget>
#include <memory>

// Colour bar of a colour table, along the longer side of the widget: from left to right, or from bottom to
// top.
class HVUTILS_EXPORT CHVSPalettePixmapView : public QOpenGLWidget
{
    Q_OBJECT

public:
    explicit CHVSPalettePixmapView(QWidget* parent);
    ~CHVSPalettePixmapView() override;

    // Shows a colour table from the fraction `low` to the fraction `high` of its length, 0 to 1.
    void setPaletteCT(HVS_COLORTABLE_TYPES type, float low, float high);

    // True shows the table from its last to its first colour.
    void setPaletteCTReverse(bool reverse);

    // The palette as shown.
    CILPalette getPalette() const;

protected:
    void paintGL() override;

private:
    Q_DISABLE_COPY(CHVSPalettePixmapView)
    class Private;
    std::unique_ptr<Private> d;
};
