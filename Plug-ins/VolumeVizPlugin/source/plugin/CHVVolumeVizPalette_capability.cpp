#include "plugin/CHVVolumeVizPalette.h"

#include "plugin/logic/CapabilityProbe.h"
#include "render/gl/GlewSupport.h"
#include "render/gl/OGL_INFO.h"

#include <QTextEdit>

namespace {

QString glText(GLenum name)
{
    const GLubyte* text = glGetString(name);
    return text ? QString::fromLatin1(reinterpret_cast<const char*>(text)) : QString();
}

GraphicsStrings currentGraphics()
{
    OGL_INFO context;
    context.setWindowOpacity(0.1);
    context.show();
    context.makeCurrent();
    GraphicsStrings graphics;
    if (context.isValid()) {
        glew::initialise();
        graphics = {glText(GL_VERSION), glText(GL_EXTENSIONS), glText(GL_SHADING_LANGUAGE_VERSION)};
        context.doneCurrent();
    }
    context.close();
    return graphics;
}

bool testPending = true;  // once a process: the answer is for the machine

}  // namespace

void CHVVolumeVizPalette::testCapability()
{
    if (!testPending) return;
    const GraphicsStrings graphics = currentGraphics();
    testPending = false;
    m_b3DCVSupported = supportsVolumeRendering(graphics);
    if (!m_b3DCVSupported) showUnsupportedNotice();
}

void CHVVolumeVizPalette::showUnsupportedNotice()
{
    VolumeVizTabWidget->clear();
    auto* notice = new QTextEdit(VolumeVizTabWidget);
    notice->setReadOnly(true);
    notice->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    notice->setHtml(unsupportedGraphicsNotice());
    VolumeVizTabWidget->addTab(notice, QStringLiteral("Warning"));
    setAcceptDrops(false);
}
