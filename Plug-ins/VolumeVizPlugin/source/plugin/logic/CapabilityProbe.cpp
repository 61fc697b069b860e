#include "plugin/logic/CapabilityProbe.h"

#include <QStringList>

float leadingNumber(const QString& text, QChar separator)
{
    return text.section(separator, 0, 0).toFloat();
}

bool supportsVolumeRendering(const GraphicsStrings& graphics)
{
    if (leadingNumber(graphics.version, QLatin1Char('.')) < 2.0f) return false;
    const QStringList extensions = graphics.extensions.split(QLatin1Char(' '));
    if (!extensions.contains(QLatin1String("GL_EXT_texture3D"), Qt::CaseInsensitive)) return false;
    return leadingNumber(graphics.shadingLanguage, QLatin1Char(' ')) >= 1.2f;
}

QString unsupportedGraphicsNotice()
{
    const QString tabs(9, QLatin1Char('\t'));
    return QStringLiteral("<p><font color=\"red\">This system doesn't meet the minimum requirements for "
                          "<b>3D Corvane Tools</b>, due to the following reason(s).</p></font>") +
           tabs +
           QStringLiteral("<p><ul><li>Requires <b>OpenGL 2.0</b> with GPU shader support.</li>"
                          "<li>Requires <b>GL_EXT_texture3D</b> extension.</li></ul>") +
           tabs +
           QStringLiteral("<p>Please refer to the Halvane&reg; User Guide for this tool's minimum system and "
                          "graphic card (GPU) requirements.</p>");
}
