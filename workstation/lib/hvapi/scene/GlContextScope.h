#pragma once

#include <QPointer>
#include <memory>

class QOffscreenSurface;
class QOpenGLContext;
class QOpenGLWidget;

namespace hvscene {

/// Makes a GL context of the application's sharing group current for as long as it lives: the one that is
/// current already, else that of `view` (may be null), else one of its own. Where there is no GL at all none
/// is current.
class GlContextScope
{
public:
    explicit GlContextScope(QOpenGLWidget* view);
    ~GlContextScope();
    GlContextScope(const GlContextScope&) = delete;
    GlContextScope& operator=(const GlContextScope&) = delete;

private:
    QPointer<QOpenGLWidget> m_view;
    std::unique_ptr<QOffscreenSurface> m_surface;
    std::unique_ptr<QOpenGLContext> m_context;
};

}  // namespace hvscene
