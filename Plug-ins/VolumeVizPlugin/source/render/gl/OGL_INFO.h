#pragma once

#include <QOpenGLWidget>

/// A widget of one pixel whose only service is a current OpenGL context of its own, for questions to the
/// driver. It need not be shown.
class OGL_INFO : public QOpenGLWidget
{
    Q_OBJECT

public:
    explicit OGL_INFO(QWidget* parent = nullptr);

    /// Makes the context current and reads "GL_VERSION": the number before its second point, 4.5 for
    /// "4.5.0 ...". 0 without a context.
    float openGLVersion();

    /// The number at the start of such a text; 0 for null and for a text that starts with no number.
    static float versionNumber(const char* text);
};
