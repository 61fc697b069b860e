#include "lib/hvapi/scene/GlContextScope.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLWidget>

namespace hvscene {

GlContextScope::GlContextScope(QOpenGLWidget* view)
{
    if (QOpenGLContext::currentContext()) return;
    if (view && view->isValid()) {
        m_view = view;
        view->makeCurrent();
        return;
    }
    QOpenGLContext* shared = QOpenGLContext::globalShareContext();
    if (!shared) return;
    m_surface = std::make_unique<QOffscreenSurface>();
    m_surface->setFormat(shared->format());
    m_surface->create();
    m_context = std::make_unique<QOpenGLContext>();
    m_context->setFormat(shared->format());
    m_context->setShareContext(shared);
    if (m_surface->isValid() && m_context->create()) m_context->makeCurrent(m_surface.get());
}

GlContextScope::~GlContextScope()
{
    if (m_view) m_view->doneCurrent();
    if (m_context) m_context->doneCurrent();
}

}  // namespace hvscene
