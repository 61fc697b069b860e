#include "render/CGLVolume.h"

#include "render/logic/SlicePolygon.h"
#include "render/logic/SliceStack.h"
#include "render/logic/ThickSlab.h"
#include "render/logic/VolumeBox.h"

namespace {

template <int N>
void sendPolygon(GLenum primitive, const VolumeVertex (&corners)[N])
{
    glColor3f(1.0F, 1.0F, 1.0F);
    glBegin(primitive);
    for (const VolumeVertex& corner : corners) {
        glTexCoord3dv(corner.texture);
        glVertex4dv(corner.position);
    }
    glEnd();
}

}  // namespace

void CGLVolume::recalculateGeometry()
{
    Coord3d min;
    Coord3d max;
    getBBox(min, max);
    placeVolumeVertices(min, max, getAxisOrientation(), m_vertices);
    listVolumeEdges(m_edges);
    m_bVolumeListDirty = true;
    m_bThickSliceListDirty = true;
}

void CGLVolume::drawStack(const VolumeVertex& view, double interval)
{
    const SliceStack stack(m_vertices, m_edges, view, interval);
    VolumeVertex polygon[6];
    for (int i = stack.count() - 1; i >= 0; --i)
        if (stack.polygon(i, polygon)) sendPolygon(GL_TRIANGLE_FAN, polygon);
}

void CGLVolume::drawThickStack(int axis, double interval)
{
    Coord3d min;
    Coord3d max;
    getBBox(min, max);
    const ThickStack stack(min, max, getAxisOrientation(), axis, interval);
    VolumeVertex quad[4];
    for (int i = stack.count() - 1; i >= 0; --i) {
        stack.quad(i, quad);
        sendPolygon(GL_QUADS, quad);
    }
}

void CGLVolume::drawSlice(const double (&plane)[4], const Coord3d& min, const Coord3d& max, bool bTransformed)
{
    VolumeVertex vertices[8];
    const matrix transformation = getTransformation();
    for (int k = 0; k < 8; ++k) {
        vertices[k] = m_vertices[k];
        if (!bTransformed) continue;
        double(&position)[4] = vertices[k].position;
        const Vec3f moved = transformation * Vec3f(position[0], position[1], position[2]);
        position[0] = moved.x();
        position[1] = moved.y();
        position[2] = moved.z();
    }
    VolumeVertex polygon[6];
    if (slicePolygon(vertices, m_edges, min, max, plane, polygon)) sendPolygon(GL_TRIANGLE_FAN, polygon);
}
