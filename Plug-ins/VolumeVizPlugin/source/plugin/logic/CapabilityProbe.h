#pragma once

#include <QString>

/// What a graphics system says of itself: the texts of GL_VERSION, GL_EXTENSIONS and
/// GL_SHADING_LANGUAGE_VERSION, null where it says nothing.
struct GraphicsStrings
{
    QString version;
    QString extensions;
    QString shadingLanguage;
};

/// Number before the first `separator`, as "4" of "4.5 (Compatibility Profile)" for "."; 0 where there is
/// none.
float leadingNumber(const QString& text, QChar separator);

/// True when volumes can be drawn: OpenGL 2.0, the extension GL_EXT_texture3D, shading language 1.2.
bool supportsVolumeRendering(const GraphicsStrings& graphics);

/// The notice (HTML) that takes the palette's place where supportsVolumeRendering() is false.
QString unsupportedGraphicsNotice();
