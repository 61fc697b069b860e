#pragma once

#include "hvapi/hvapi_global.h"

#include <QObject>
#include <memory>

/// One of the three orthogonal planes of a 3D scene, on which the volumes of the scene can be shown as a cut.
class HVAPI_EXPORT C3DSlice : public QObject
{
    Q_OBJECT

public:
    ~C3DSlice() override;

    /// The normal: 0 for x (the YZ plane), 1 for y (XZ), 2 for z (XY).
    int getAxis() const;
    /// Where the plane meets its axis, in millimetres of the scene.
    double getPosition() const;
    void setPosition(double position);
    /// Planes start hidden.
    void show(bool bShow);
    bool isDisplayed() const;
    /// Repaints what shows the plane.
    void update();

    /// The host's own side of the slice.
    struct Private;
    Private& hostSide();

signals:
    void sliceChanged();

private:
    Q_DISABLE_COPY(C3DSlice)
    friend class C3DScene;
    explicit C3DSlice(int axis);
    std::unique_ptr<Private> d;
};
