// The preview: one frame of the selection, decoded when it is shown.

#include "browse/C3DCVImportDialog.h"

#include "browse/CVolBrowseManager.h"
#include "browse/logic/Preview.h"
#include "hvapi/windows/CHVSSimpleImageView.h"
#include "hvdicom/CDicomReader.h"
#include "hvdicom/CHVDcmImage.h"
#include "hvimage/CILImage.h"
#include "hvimage/HV_GrayMinMax.h"

#include <QFile>
#include <QFileInfo>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>

namespace {

constexpr int unreadable = 65;   // status of the host for a file that can't be read
constexpr int unsupported = 11;  // for one that is of no kind that can be shown
constexpr int colourPicture = 30;

int frameNumber(unsigned long frames)
{
    return static_cast<int>(std::min<unsigned long>(frames, std::numeric_limits<int>::max()));
}

}  // namespace

QString C3DCVImportDialog::filePath(int row) const
{
    return m_strCurrentFolder + QLatin1Char('/') + m_strFiles.value(row);
}

QByteArray C3DCVImportDialog::fileName(int row) const
{
    return QFile::encodeName(filePath(row));
}

void C3DCVImportDialog::showPage(PreviewPage page)
{
    m_pMessageLabel->setText(pageText(page));
    m_pPreviewStack->setCurrentWidget(page == PreviewPage::Picture ? m_pPicturePage : m_pMessagePage);
}

void C3DCVImportDialog::updatePreview()
{
    m_pPreview->update();
}

int C3DCVImportDialog::initData()
{
    m_bIsTiff = false;
    m_bIsRaw = false;
    m_nFrames = 0;
    m_pDcmImage.reset();
    m_pReader.reset();
    *m_pImage = CILImage();
    const QFileInfo file(filePath(0));
    if (!file.isFile() || !file.isReadable()) return unreadable;
    const PreviewKind kind =
        previewKind(CILImage::canInitFromFile(fileName(0).constData()) != 0, m_strFiles.value(0));
    m_bIsTiff = kind == PreviewKind::Tiff;
    m_bIsRaw = kind == PreviewKind::Raw;
    if (m_bIsTiff) return initWithTIFF();
    return m_bIsRaw ? initWithRAW() : initWithDICOM();
}

int C3DCVImportDialog::initWithTIFF()
{
    const bool isRead = m_pImage->LoadFromTIFFFile(fileName(0).constData(), 0);
    const bool isSingle = m_strFiles.size() < 2;
    if (isSingle && m_pImage->isRGBImageFormat()) return colourPicture;
    if (!isRead) return unsupported;
    m_nFrames = isSingle ? m_pImage->getImageCount() : m_strFiles.size();
    m_pPreview->setScaleUnits(SCALEUNIT_PIXELS);
    m_pPreview->setPixelSpacingForImage(1.0F, 1.0F);
    setDisplayRange(m_pImage->getMin(), m_pImage->getMax());
    return 0;
}

// A RAW volume is shown when it is loaded: before that nobody knows its size.
int C3DCVImportDialog::initWithRAW()
{
    m_nFrames = 1;
    return 0;
}

bool C3DCVImportDialog::isOpenedAsNative(const QString& path)
{
    m_pReader = std::make_unique<CDicomReader>();
    if (m_pReader->initDicomImporter(path) == 0 && m_pReader->loadEntireDicomInfo() == 0) {
        const QString writer = m_pReader->getImplementationVersionName();
        if (writer.contains(QLatin1String("HVS3D")) || writer.contains(QLatin1String("Halvane"))) return true;
    }
    m_pReader.reset();
    return false;
}

int C3DCVImportDialog::initWithDICOM()
{
    std::optional<PixelDistance> distance;
    const QString path = filePath(0);
    if (isOpenedAsNative(path)) {
        if (!m_pReader->getPhotometricInterpretation().contains(QLatin1String("Monochrome"),
                                                                Qt::CaseInsensitive))
            return unsupported;
        m_nFrames = m_strFiles.size() > 1 ? m_strFiles.size() : frameNumber(m_pReader->getTotalFrames());
        double rows = 0.0;
        double columns = 0.0;
        if (m_pReader->getPixelSpacing(rows, columns))
            distance = pixelDistance(QStringLiteral("%1\\%2").arg(rows).arg(columns));
        if (!takeNativeFrame(1)) return unsupported;
    } else {
        m_pDcmImage = std::make_unique<CHVDcmImage>();
        if (!CHVDcmImage::isDICOM(fileName(0).constData()) || !m_pDcmImage->LoadFromDICOMFile(path))
            return unsupported;
        m_nFrames = m_strFiles.size() > 1 ? m_strFiles.size() : frameNumber(m_pDcmImage->getFrameCount());
        distance = pixelDistance(m_pDcmImage->getTagValue(QStringLiteral("0028"), QStringLiteral("0030")));
        if (!takeDicomFrame(1)) return unsupported;
    }
    m_pPreview->setScaleUnits(distance ? SCALEUNIT_MM : SCALEUNIT_PIXELS);
    const PixelDistance known = distance.value_or(PixelDistance());
    m_pPreview->setPixelSpacingForImage(static_cast<float>(known.alongWidth),
                                        static_cast<float>(known.alongHeight));
    return 0;
}

bool C3DCVImportDialog::takeNativeFrame(unsigned long frame)
{
    if (m_pReader->readPixelInfo(m_pImage.get(), frame - 1) != 0) return false;
    setGrayRange();
    return true;
}

bool C3DCVImportDialog::takeDicomFrame(unsigned long frame)
{
    void* const samples = m_pDcmImage->get_data(frame);
    if (!samples || !m_pImage->InitFromDICOMFile(static_cast<char*>(samples),
                                                 static_cast<unsigned>(m_pDcmImage->getHeight()),
                                                 static_cast<unsigned>(m_pDcmImage->getWidth()),
                                                 static_cast<unsigned>(m_pDcmImage->getDepth())))
        return false;
    setGrayRange();
    return true;
}

void C3DCVImportDialog::setGrayRange()
{
    double minimum = 0.0;
    double maximum = 0.0;
    double mean = 0.0;
    HV_GrayMinMax(m_pImage.get(), &minimum, &maximum, &mean);
    setDisplayRange(minimum, maximum);
}

void C3DCVImportDialog::setDisplayRange(double minimum, double maximum)
{
    CILPalette palette = m_pImage->getPalette();
    palette.SetImageMinMax(minimum, maximum);
    m_pImage->setPalette(palette);
}

void C3DCVImportDialog::onFrameChanged(int nFrame)
{
    m_pFrameLabel->setText(QStringLiteral("%1").arg(nFrame));
    const int row = m_strFiles.size() > 1 ? nFrame - 1 : 0;
    if (row < 0 || row >= m_strFiles.size() || m_bIsRaw) return;
    if (m_strFiles.size() > 1) {
        const QSignalBlocker quiet(m_pFileList);
        m_pFileList->setCurrentRow(row);
    }
    if (!QFileInfo(filePath(row)).isFile()) {
        showPage(PreviewPage::NotFound);
        setStatus(m_bIsTiff ? QStringLiteral("Unable to locate TIFF file on disk.")
                            : QStringLiteral("Unable to locate DICOM file on disk."));
        return;
    }
    const bool wasMessage = m_pPreviewStack->currentWidget() != m_pPicturePage;
    const bool isRead = readFrame(nFrame, row);
    showPage(isRead ? PreviewPage::Picture : PreviewPage::NotCompatible);
    if (isRead && wasMessage) updateStatusMessage();
    updatePreview();
}

bool C3DCVImportDialog::readFrame(int nFrame, int row)
{
    if (!m_bIsTiff) return readDicomFrame(nFrame, row);
    const bool isPage = m_strFiles.size() < 2;
    const bool isRead = isPage ? m_pImage->getFrameData(nFrame - 1) != nullptr
                               : m_pImage->LoadFromTIFFFile(fileName(row).constData(), 0);
    if (isRead) setDisplayRange(m_pImage->getMin(), m_pImage->getMax());
    return isRead;
}

bool C3DCVImportDialog::readDicomFrame(int nFrame, int row)
{
    if (m_strFiles.size() < 2) {
        const auto frame = static_cast<unsigned long>(nFrame);
        return m_pReader ? takeNativeFrame(frame) : m_pDcmImage && takeDicomFrame(frame);
    }
    const QString path = filePath(row);
    if (m_pReader)
        return m_pReader->initDicomImporter(path) == 0 && m_pReader->loadEntireDicomInfo() == 0 &&
               takeNativeFrame(1);
    return m_pDcmImage && m_pDcmImage->LoadFromDICOMFile(path) && takeDicomFrame(1);
}
