#pragma once

#include "lib/hvapi/scene/logic/VoxelReadout.h"

#include <QObject>
#include <QPoint>
#include <QString>
#include <QTimer>
#include <optional>

class C3DScene;
class C3DVolumeData;

namespace hvscene {

/// Names of the dynamic properties by which the owner of a volume tells the unit that it shows values in: the
/// name, and what voxels 0 and 255 stand for.
constexpr char unitNameProperty[] = "valueUnit";
constexpr char unitLowestProperty[] = "valueAtLowest";
constexpr char unitHighestProperty[] = "valueAtHighest";

/// What the values of a volume stand for: as its properties tell, or, unless they are whole, its counts.
ValueUnit unitOf(const C3DVolumeData& volume);

/// The line that tells of the voxel under the mouse. The mouse moves far more often than anybody reads: a
/// voxel is looked for when events have been handled, and not more than 25 times a second.
class CursorReadout : public QObject
{
    Q_OBJECT

public:
    explicit CursorReadout(C3DScene& scene);

    /// The mouse is there, in the pixels of mouse events.
    void moveTo(QPoint mouse);
    /// It is elsewhere.
    void leave();
    /// Under a mouse that rests there may be something else now.
    void sceneChanged();

signals:
    /// Empty: there is no voxel.
    void told(const QString& text);

private:
    void look();

    C3DScene& m_scene;
    QTimer m_pause;
    std::optional<QPoint> m_mouse;
};

}  // namespace hvscene
