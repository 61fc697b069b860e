#include "lib/hvapi/scene/BoxOutline.h"

#include "hvapi/scene/C3DVolumeData.h"
#include "lib/hvapi/scene/GlViewState.h"

namespace hvscene {

void drawBoxOutline(C3DVolumeData& volume, Vec3 towardsViewer, BoxEdges edges, float lineWidth)
{
    Coord3d low;
    Coord3d high;
    volume.getBBox(low, high);
    Box box;
    box.add({low.x, low.y, low.z});
    box.add({high.x, high.y, high.z});
    const matrix transformation = volume.getTransformation();

    Vec3 corners[8];
    int farthest = 0;
    for (int k = 0; k < 8; ++k) {
        const Vec3 c = box.corner(k);
        const Vec3f p = transformation * Vec3f(c.x, c.y, c.z);
        corners[k] = {p.x(), p.y(), p.z()};
        // Edges seen end on count as visible: a corner has to be clearly farther.
        if (dot(corners[k] - corners[farthest], towardsViewer) < -1e-9 * box.radius()) farthest = k;
    }

    const AttributeScope attributes;
    glDepthMask(GL_FALSE);
    if (edges == BoxEdges::Visible) glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_LINE_SMOOTH);
    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    glLineWidth(1.2f * lineWidth);
    glColor4f(0.62f, 0.72f, 0.84f, edges == BoxEdges::Visible ? 0.42f : 0.22f);
    glBegin(GL_LINES);
    for (int k = 0; k < 8; ++k) {
        for (int bit = 1; bit < 8; bit <<= 1) {
            if (k & bit) continue;
            const int end = k | bit;
            const bool hidden = k == farthest || end == farthest;
            if (hidden != (edges == BoxEdges::Hidden)) continue;
            glVertex3d(corners[k].x, corners[k].y, corners[k].z);
            glVertex3d(corners[end].x, corners[end].y, corners[end].z);
        }
    }
    glEnd();
}

}  // namespace hvscene
