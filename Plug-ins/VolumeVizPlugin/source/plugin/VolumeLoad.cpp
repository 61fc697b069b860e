#include "plugin/VolumeLoad.h"

#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSMessageBox.h"
#include "hvutils/CHVUtilityFns.h"
#include "plugin/CHVVolumeVizPalette.h"
#include "plugin/PaletteTarget.h"
#include "plugin/PluginLog.h"
#include "plugin/SceneRefresh.h"
#include "plugin/VolumeReader.h"
#include "plugin/logic/Manufacturer.h"
#include "plugin/logic/SourceLimits.h"
#include "plugin/logic/TempFolders.h"
#include "render/CGLVolume.h"
#include "transfer/CTransferFunction1DWidget.h"

#include <QCursor>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <memory>

namespace {

void showMinimised(CHVSSequenceWindow* window)
{
    auto* subWindow = window ? qobject_cast<CHVSMdiSubWindow*>(window->parentWidget()) : nullptr;
    if (subWindow && subWindow->isMinimized()) subWindow->showWindow();
}

QStringList sorted(QStringList files)
{
    files.sort(Qt::CaseSensitive);
    return files;
}

void createFolder(const QString& path)
{
    if (!QDir(path).exists()) QDir().mkdir(path);
}

}  // namespace

VolumeLoad::VolumeLoad(CHVVolumeVizPalette& palette, const LoadRequest& request)
    : m_palette(palette)
    , m_request(request)
{}

CHVSSequenceWindow* VolumeLoad::window() const
{
    return PaletteTarget::of(m_palette.m_pSequenceDataset).window;
}

CGLVolume* VolumeLoad::node() const
{
    return PaletteTarget::of(m_palette.m_pSequenceDataset).node;
}

bool VolumeLoad::run()
{
    if (!sequenceIsReady()) return false;
    if (m_request.showsWindow) showMinimised(window());
    if (!takeFileList() || !fileIsAVolume() || !m_palette.m_pSequenceDataset) return false;

    CHVUtilityFns::setCursor(QCursor(Qt::WaitCursor));
    m_palette.m_pSequenceDataset->setLoadedVolumetricData(QStringList());
    m_palette.m_eManufacturer = 0;
    if (m_request.setsLimits) {
        m_palette.m_nLowerLimit = m_request.lowerLimit;
        m_palette.m_nUpperLimit = m_request.upperLimit;
    }
    const std::unique_ptr<VolumeReader> reader = VolumeReader::of(m_kind, &m_palette);
    if (!read(reader.get())) {
        CHVUtilityFns::restoreCursor();
        return false;
    }
    m_palette.addGLVolumeNodeTo3DSceneGraph();
    if (CHVSSequenceWindow* shown = window())
        QObject::connect(shown, SIGNAL(update3DToolButtonsStates(S3DControls*)), &m_palette,
                         SLOT(onSignalUpdate3DToolButtons(S3DControls*)), Qt::UniqueConnection);
    if (!node()) {
        // The wait cursor stays: without a node the 3D view is of no more use.
        logMessage(
            CHVSLog::eError,
            QStringLiteral("Failed to create a volume rendering object instance - unable to continue"));
        return false;
    }
    const QString id = m_palette.m_strSequenceID;
    const bool loaded = handOver(*reader);
    // A question of the load keeps the events running: another sequence may be current now.
    if (m_palette.m_strSequenceID == id) markModified();
    CHVUtilityFns::restoreCursor();
    return loaded;
}

bool VolumeLoad::sequenceIsReady()
{
    if (m_request.waitsForAcquisition && CHVProcess::isProcessInProgress(eProcessAcquisition)) {
        logMessage(CHVSLog::eWarning,
                   QStringLiteral("Unable to load volumetric data - data acquisition/initialization in "
                                  "progress. Try again later."));
        return false;
    }
    if (!m_palette.m_pSequenceDataset) return false;
    if (!window()) logMessage(CHVSLog::eError, QStringLiteral("Invalid sequence window handle to proceed."));
    return true;
}

bool VolumeLoad::takeFileList()
{
    switch (m_request.source) {
    case LoadRequest::Source::Given:
        m_palette.m_strFileList = m_request.files;
        break;
    case LoadRequest::Source::Remembered:
        m_palette.m_strFileList = sorted(m_palette.m_strFileList);
        break;
    case LoadRequest::Source::AskUser:
        const QStringList chosen = askForFiles();
        if (chosen.isEmpty()) return false;
        m_palette.m_strFileList = sorted(chosen);
        break;
    }
    if (m_palette.m_strFileList.isEmpty()) return false;
    m_file = m_palette.m_strFileList.first();
    m_palette.m_strCurrentFile = m_file;
    return true;
}

QStringList VolumeLoad::askForFiles() const
{
    const QString folder = m_palette.m_strCurrentFile.section(QLatin1Char('/'), 0, -2);
    const QString filter =
        QStringLiteral("DICOM Volume(*.dcm *.dc3);;TIFF Volume(*.tif *tiff);;RAW Volume(*.raw *.vox);;");
    return QFileDialog::getOpenFileNames(&m_palette, QStringLiteral("Open 3D Volumetric Data"), folder,
                                         filter);
}

bool VolumeLoad::fileIsAVolume()
{
    if (m_file.isNull()) return true;  // nothing to say of it; the read fails
    const QFileInfo file(m_file);
    if (m_request.namesMissingFile && !file.exists()) {
        logMessage(CHVSLog::eWarning, QStringLiteral("Corvane result file not found '%1'.").arg(m_file));
        CHVSMessageBox::information(&m_palette, CHVUtilityFns::getAppName(),
                                    QStringLiteral("Corvane result file not found."), CHVSMessageBox::eOk, 0,
                                    0);
        return false;
    }
    if (!file.isReadable()) {
        CHVSErrorHandler::errorMessage(&m_palette, eStatusFileNotReadable, QString());
        return false;
    }
    m_kind = kindOfFile(m_file);
    if (m_kind == FileKind::HostPicture)
        CHVSErrorHandler::errorMessage(&m_palette, eStatusPlanarImageFile, QString());
    else if (m_kind == FileKind::NotAVolume)
        CHVSErrorHandler::errorMessage(&m_palette, eStatusUnsupportedFile, QString());
    else
        return true;
    return false;
}

bool VolumeLoad::read(VolumeReader* reader)
{
    const QPointer<CHVSSequenceDataset> sequence = m_palette.m_pSequenceDataset;
    const bool done =
        reader && reader->read(m_palette.m_strFileList, m_request.lowerLimit, m_request.upperLimit);
    if (done && sequence && sequence == m_palette.m_pSequenceDataset) {
        m_loadedFiles = reader->loadedFiles();
        m_palette.m_strFileList = m_loadedFiles;
        return true;
    }
    if (!done && m_kind == FileKind::Dicom) emit m_palette.dicomLoadingFailed();
    CHVSSequenceWindow* shown = window();
    if (m_request.tellsWindowOfFailure && shown) shown->onSignal3DViewChanged(false);
    return false;
}

bool VolumeLoad::handOver(VolumeReader& reader)
{
    CGLVolume& volume = *node();
    if (m_request.forgetsRawSize) volume.resetRawSize();
    const bool taken = reader.giveTo(volume);
    if (taken) m_palette.m_eManufacturer = manufacturerNumber(reader.manufacturer());
    if (!taken) {
        CHVSErrorHandler::errorMessage(&m_palette, eStatusVolumeNotLoaded, QString());
        return false;
    }
    volume.show(true);
    const PaletteTarget now = PaletteTarget::of(m_palette.m_pSequenceDataset);
    if (now.scene) {
        Vec3f fullBox[8];
        now.scene->setCroppingBoxOffset(fullBox);
    }
    const QPointer<CGLVolume> taker(&volume);
    fillRecord(volume);
    if (!isStillCurrent(taker)) return false;
    dumpVoxels(volume);
    volume.setTransformation(matrix());
    SceneRefresh::volumeArrived(window());
    m_palette.onBestRenderQualityCheckBoxToggled(true);
    if (!isStillCurrent(taker)) return false;
    showVolume();
    return true;
}

/// The question for the render mode keeps the events running, and the sequence may go in them.
bool VolumeLoad::isStillCurrent(const CGLVolume* volume) const
{
    return volume && volume == node();
}

void VolumeLoad::fillRecord(CGLVolume& volume)
{
    SVolVizControls& record = m_palette.currentRecord();
    record.bVolumeLoaded = true;
    record.bEnabled = true;
    // The host's signals may have refilled the palette from the old record in between.
    m_palette.m_strFileList = m_loadedFiles;
    record.fileList = m_loadedFiles;
    m_palette.m_pSequenceDataset->setLoadedVolumetricData(m_loadedFiles);

    volume.show(true);
    record.nSliceMin = volume.getMin();
    record.nSliceMax = volume.getMax();
    const SourceLimits limits = sourceLimits(volume.getMin(), volume.getMax());
    volume.setSliceMin(static_cast<float>(limits.min));
    volume.setSliceMax(static_cast<float>(limits.max));

    const bool forAResult = m_palette.m_bLoadFromFileList && !m_palette.m_bDroppedFiles;
    record.bAutoFit = !forAResult;
    record.dVolumeMin = limits.min;
    record.dVolumeMax = limits.max;
    record.nOpacitySlider = 100;
    m_palette.m_pTransferFunctionWidget->setMaxOpacity(255.0F);

    volume.setMIP(record.bMIP);
    volume.setLighting(record.bLighting);
    volume.setMedianFilterDenoise(record.bMedianFilterDenoise);
    volume.setFilterDenoiseGradient(record.bFilterDenoiseGradient);
    volume.setRenderInBestPerformance(!record.bBestQuality);

    const QPointer<CGLVolume> taker(&volume);
    m_palette.updatePaletteControls(&record);
    if (!isStillCurrent(taker)) return;
    m_palette.m_bHistogramDirty = true;
    m_palette.updateVolumeColorMap(true);
    m_palette.updateVolumeHistogram();
    if (!isStillCurrent(taker)) return;
    m_palette.createSliceView(PaletteTarget::of(m_palette.m_pSequenceDataset));
}

void VolumeLoad::dumpVoxels(CGLVolume& volume) const
{
    const QString data = CHVPreference::getProgramDataPath();
    const QString path = voxelDumpPath(data, m_palette.m_pSequenceDataset->getSequenceID());
    const unsigned char* voxels = volume.getVolumeData();
    if (path.isNull() || !voxels) return;
    createFolder(tempRoot(data));
    createFolder(sequenceTempFolder(data, m_palette.m_pSequenceDataset->getSequenceID()));
    QFile dump(path);
    if (dump.open(QIODevice::WriteOnly)) {
        const qint64 count = qint64(volume.getWidth()) * volume.getHeight() * volume.getDepth();
        dump.write(reinterpret_cast<const char*>(voxels), count);
        dump.close();
    }
    volume.setRAWVolumeDataFile(path);
}

void VolumeLoad::showVolume()
{
    SceneRefresh::volumeLoaded(window());
    m_palette.onVolumeSliceViewerSliderChange(0);
    m_palette.updateSliceView();
    const PaletteTarget now = PaletteTarget::of(m_palette.m_pSequenceDataset);
    if (now.scene) {
        m_palette.currentRecord().registration.registrationMessage = QString();
        m_palette.onClickAutoFitTB();
    }
    m_palette.m_pCorvaneResultLbl->setText(QStringLiteral("Volume Information: (Unsaved)"));
}

void VolumeLoad::markModified()
{
    if (m_palette.m_bLoadFromFileList && !m_palette.m_bDroppedFiles) return;
    SVolVizControls* record = m_palette.target().record;
    // A refused volume is told in a box, which keeps the events running.
    if (!record || m_palette.m_pResultsTabControl->getResultModifiedFlag()) return;
    record->bModified = true;
    m_palette.m_pResultsTabControl->setResultModifiedFlag(true);
    m_palette.m_pResultsTabControl->updateSavedResultsForSelSeqId(m_palette.m_strSequenceID);
}
