#include "lib/hvapi/scene/SceneTool.h"

#include "hvapi/scene/C3DScene.h"

#include <QLocale>
#include <algorithm>

namespace hvscene {

SceneTool::~SceneTool() = default;

ObjectTool::ObjectTool(C3DScene& scene, C3DObject& object)
    : m_scene(scene)
    , m_object(&object)
{}

void ObjectTool::update()
{
    // Handles are laid out in every frame, from what the object is then.
    m_scene.update();
}

Vec3 toVec3(const Vec3f& v)
{
    return {v.x(), v.y(), v.z()};
}

Vec3 toVec3(const Coord3d& c)
{
    return {c.x, c.y, c.z};
}

Matrix16 toMatrix16(const matrix& m)
{
    Matrix16 out;
    const double* values = m;
    std::copy(values, values + 16, out.begin());
    return out;
}

matrix toMatrix(const Matrix16& m)
{
    return matrix(m.data(), matrix::COLUMN_MAJOR);
}

Box ownBox(C3DObject& object)
{
    Coord3d min;
    Coord3d max;
    object.getBBox(min, max);
    Box box;
    box.add(toVec3(min));
    box.add(toVec3(max));
    return box;
}

QString millimetres(double mm, bool withSign)
{
    const double shown = std::fabs(mm) < 0.005 ? 0.0 : mm;
    const QString number = QString::number(std::fabs(shown), 'f', 2);
    const QString sign = shown < 0.0 ? QStringLiteral("\u2212") : withSign ? QStringLiteral("+") : QString();
    return sign + number + QStringLiteral(" mm");
}

}  // namespace hvscene
