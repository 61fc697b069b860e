#pragma once

#include "hvapi/scene/C3DObject.h"
#include "lib/hvapi/scene/ViewControl.h"
#include "lib/hvutils/HostServices.h"

#include <QColor>
#include <QImage>
#include <QStringList>
#include <functional>

namespace viz_test {

/// Host services that keep the log.
class RecordingServices : public HostServices
{
public:
    RecordingServices() { HostServices::install(this); }
    ~RecordingServices() override { HostServices::install(nullptr); }

    void log(const HostLogEntry& entry) override
    {
        messages += entry.message;
        severities += static_cast<int>(entry.severity);
    }

    QStringList messages;
    QList<int> severities;
};

/// A box whose six faces have a colour each: +x red, -x dark red, +y green, -y dark green, +z blue, -z dark
/// blue.
class ColouredBox : public C3DObject
{
public:
    explicit ColouredBox(QString name, double halfX = 10.0, double halfY = 10.0, double halfZ = 10.0)
        : C3DObject(name)
        , m_half{halfX, halfY, halfZ}
    {}
    ~ColouredBox() override
    {
        if (onDestroy) onDestroy();
    }

    void getBBox(Coord3d& min, Coord3d& max) override
    {
        min = Coord3d(-m_half[0], -m_half[1], -m_half[2]);
        max = Coord3d(m_half[0], m_half[1], m_half[2]);
    }

    void render(bool, GLenum) override
    {
        ++frames;
        if (onRender) onRender();
        glEnable(GL_DEPTH_TEST);
        glBegin(GL_QUADS);
        for (int axis = 0; axis < 3; ++axis) {
            for (int side = 0; side < 2; ++side) {
                GLubyte colour[3] = {0, 0, 0};
                colour[axis] = side ? 240 : 120;
                glColor3ubv(colour);
                const int u = (axis + 1) % 3;
                const int v = (axis + 2) % 3;
                for (int k = 0; k < 4; ++k) {
                    double p[3];
                    p[axis] = side ? m_half[axis] : -m_half[axis];
                    p[u] = (k == 1 || k == 2) ? m_half[u] : -m_half[u];
                    p[v] = k >= 2 ? m_half[v] : -m_half[v];
                    glVertex3dv(p);
                }
            }
        }
        glEnd();
    }

    int frames = 0;
    std::function<void()> onRender;
    std::function<void()> onDestroy;

private:
    double m_half[3];
};

inline QColor middleOf(const QImage& image)
{
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

}  // namespace viz_test
