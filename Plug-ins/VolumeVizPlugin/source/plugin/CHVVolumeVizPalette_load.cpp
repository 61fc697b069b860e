#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "plugin/PaletteTarget.h"
#include "plugin/PluginLog.h"
#include "plugin/VolumeLoad.h"
#include "render/CGLVolume.h"

#include <new>

bool CHVVolumeVizPalette::onClickLoadVolumeButton()
{
    LoadRequest request;
    request.source = m_bLoadFromFileList ? LoadRequest::Source::Remembered : LoadRequest::Source::AskUser;
    request.waitsForAcquisition = true;
    request.showsWindow = true;
    request.namesMissingFile = true;
    request.forgetsRawSize = true;
    return VolumeLoad(*this, request).run();
}

bool CHVVolumeVizPalette::onLoadVolumeData(QStringList strFilePaths, int nMin, int nMax)
{
    LoadRequest request;
    request.source = LoadRequest::Source::Given;
    request.files = strFilePaths;
    request.setsLimits = true;
    request.lowerLimit = nMin;
    request.upperLimit = nMax;
    request.tellsWindowOfFailure = true;
    return VolumeLoad(*this, request).run();
}

void CHVVolumeVizPalette::loadDicomResult(const QString& path)
{
    m_bLoadFromFileList = true;
    onLoadVolumeData(QStringList(path), -1, -1);
    setResultsModifiedForSequence(false);
    m_bLoadFromFileList = false;
}

void CHVVolumeVizPalette::addGLVolumeNodeTo3DSceneGraph()
{
    const PaletteTarget before = target();
    if (!before.window || !before.graph || !before.graph->getRootNode()) return;
    before.window->prepare3DView();

    const PaletteTarget now = target();
    if (!now.graph || !now.graph->getRootNode() || now.graph->getNode(QStringLiteral("GLVolume"))) return;
    auto* node = new (std::nothrow) CGLVolume(QStringLiteral("GLVolume"));
    if (!node) {
        logMessage(CHVSLog::eError,
                   QStringLiteral("Unable to create an instance of GLSL based volume renderer."));
        return;
    }
    if (!now.graph->addChild(now.graph->getRootNode(), node)) {
        delete node;
        return;
    }
    if (now.scene) now.scene->addToScene(node);
    connect(node, SIGNAL(onSignalCroppinEquationsChanged(bool)), this,
            SLOT(setResultsModifiedForSequence(bool)));
    connect(node, SIGNAL(onSignalTransformationChanged(bool)), this,
            SLOT(setResultsModifiedForSequence(bool)));
    connect(node, SIGNAL(onSignalCroppinEquationsChanged(bool)), this, SLOT(onCroppingEquationChanged(bool)));
}
