#include "volume/CVolumeInfoDialog.h"

#include "hvutils/shortenFolderNameForDisplay.h"
#include "render/gl/OGL_INFO.h"
#include "render/gl/VolumeMemoryProbe.h"
#include "volume/HostImage.h"
#include "volume/logic/LoadSize.h"
#include "volume/logic/MemoryEstimate.h"

#include <QFile>
#include <QLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>

namespace {

constexpr int fullResolution = 100;
constexpr float leastOpenGL = 2.0F;
constexpr int collapsedDialogHeight = 50;
constexpr int collapsedSpacingHeight = 100;
constexpr int hintLines = 2;

const QColor good(0, 0, 0, 255);
const QColor bad(255, 0, 0, 255);

void hideIfDisabled(QWidget* group, const QWidget* dialog)
{
    group->setVisible(group->isEnabledTo(dialog));
}

}  // namespace

CVolumeInfoDialog::CVolumeInfoDialog(QWidget* parent, const char* name, bool modal, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setupUi(this);
    setObjectName(QString::fromLatin1(name));
    setModal(modal);
    setAttribute(Qt::WA_QuitOnClose, false);
    CVolumeInfoDialog::init();
}

CVolumeInfoDialog::~CVolumeInfoDialog()
{
    CVolumeInfoDialog::destroy();
}

void CVolumeInfoDialog::init()
{
    fileLabel->setText(QStringLiteral("File: "));
    connect(buttonBox, SIGNAL(accepted()), this, SLOT(accept()));
    connect(buttonBox, SIGNAL(rejected()), this, SLOT(reject()));
    connect(verifyButton, SIGNAL(clicked()), this, SLOT(updateMemoryStatus()));
    connect(resolutionSlider, SIGNAL(sliderReleased()), this, SLOT(sliceResolutionSliderReleased()));
    connect(resolutionSlider, SIGNAL(sliderPressed()), this, SLOT(sliceResolutionSliderPressed()));
    connect(resolutionSlider, SIGNAL(valueChanged(int)), this, SLOT(sliceResolutionSliderChanged(int)));

    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    memoryHintIcon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(icon));
    // A wrapped text alone does not keep the collapsed dialog from cutting its second line.
    memoryHintLabel->setMinimumHeight(hintLines * memoryHintLabel->fontMetrics().lineSpacing());
    showHint(false);
    setStatus(tr("Good"), good);
}

void CVolumeInfoDialog::destroy()
{
    buttonBox->disconnect(this);
    verifyButton->disconnect(this);
    resolutionSlider->disconnect(this);
}

bool CVolumeInfoDialog::validateInput()
{
    if (!m_validateFile) return true;
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        messageLabel->setText(tr("Unable to read the volume data file."));
        return false;
    }
    const qint64 present = file.size() - getHeaderOffset();
    const qint64 needed = qint64{getColumns()} * getRows() * getFrames() * (getBitDepth() == 16 ? 2 : 1);
    if (present < needed) {
        messageLabel->setText(tr("File doesn't contain the above specified amount of data"));
        return false;
    }
    messageLabel->clear();
    return true;
}

void CVolumeInfoDialog::languageChange()
{
    const QString file = fileLabel->text();
    const QString status = memoryStatusLabel->text();
    const QString memoryTitle = memoryGroup->title();
    const QString message = messageLabel->text();
    retranslateUi(this);
    memoryGroup->setTitle(memoryTitle);
    fileLabel->setText(file);
    memoryStatusLabel->setText(status);
    messageLabel->setText(message);
}

bool CVolumeInfoDialog::updateMemoryStatus()
{
    if (m_sliderHeld) return true;
    limitResolution();

    const auto columns = static_cast<unsigned>(getColumns());
    const auto rows = static_cast<unsigned>(getRows());
    const viz::LoadSize size =
        viz::loadSize(columns, rows, viz::resolutionFactor(getResolution()), roundToNearest);
    m_memoryGood =
        checkVolumeMemory(size.rows, size.columns, getFrames(), GL_TEXTURE_3D, viz::volumeMemoryFactor);
    if (m_memoryGood)
        showMemoryGood();
    else
        showMemoryShort();
    return m_memoryGood;
}

void CVolumeInfoDialog::limitResolution()
{
    const auto columns = static_cast<unsigned>(getColumns());
    const auto rows = static_cast<unsigned>(getRows());
    if (getResolution() != fullResolution || !viz::excludesFullResolution(columns, rows)) return;
    // The check that follows is the answer to this change; the slider's signal would only make another one.
    const QSignalBlocker quiet(resolutionSlider);
    resolutionSlider->setMaximum(fullResolution - 1);
    resolutionSlider->setValue(fullResolution - 1);
}

void CVolumeInfoDialog::showMemoryGood()
{
    setStatus(tr("Good"), good);
    showHint(false);
    buttonBox->button(QDialogButtonBox::Ok)->setEnabled(true);
}

void CVolumeInfoDialog::showMemoryShort()
{
    if (OGL_INFO().openGLVersion() < leastOpenGL) {
        memoryGroup->setTitle(tr("3D Graphics Status"));
        memoryStatusLabel->setText(tr("Please install the latest OpenGL (OpenGL 2.0 or better) drivers."));
        showHint(false);
        rowSpacingBox->setEnabled(false);
        columnSpacingBox->setEnabled(false);
        sliceSpacingBox->setEnabled(false);
        resolutionSlider->setEnabled(false);
        return;
    }
    setStatus(tr("Low Memory encountered! Unable to load volume data."), bad);
    showHint(true);
    buttonBox->button(QDialogButtonBox::Ok)->setEnabled(false);
}

void CVolumeInfoDialog::setStatus(const QString& text, const QColor& color)
{
    QPalette colors = memoryStatusLabel->palette();
    colors.setColor(QPalette::WindowText, color);
    memoryStatusLabel->setPalette(colors);
    memoryStatusLabel->setText(text);
}

void CVolumeInfoDialog::showHint(bool shown)
{
    memoryHintLabel->setVisible(shown);
    memoryHintIcon->setVisible(shown);
    if (isVisible()) collapse();
}

void CVolumeInfoDialog::sliceResolutionSliderChanged(int)
{
    updateMemoryStatus();
}

void CVolumeInfoDialog::sliceResolutionSliderReleased()
{
    m_sliderHeld = false;
    updateMemoryStatus();
}

void CVolumeInfoDialog::sliceResolutionSliderPressed()
{
    m_sliderHeld = true;
}

void CVolumeInfoDialog::accept()
{
    if (validateInput()) QDialog::accept();
}

void CVolumeInfoDialog::reject()
{
    QDialog::reject();
}

void CVolumeInfoDialog::showEvent(QShowEvent* event)
{
    updateMemoryStatus();
    hideIfDisabled(resolutionGroup, this);
    hideIfDisabled(fileGroup, this);
    hideIfDisabled(memoryGroup, this);
    hideIfDisabled(orientationGroup, this);
    if (!resolutionGroup->isEnabledTo(this)) spacingGroup->setMaximumHeight(collapsedSpacingHeight);
    setMaximumHeight(collapsedDialogHeight);
    collapse();
    QDialog::showEvent(event);
}

// The layout does not let it become smaller than what is visible.
void CVolumeInfoDialog::collapse()
{
    for (QLayout* const inner : {memoryGroup->layout(), layout()}) {
        inner->invalidate();
        inner->activate();
    }
    resize(width(), collapsedDialogHeight);
}

// Plain access to the controls.

void CVolumeInfoDialog::setFileName(const QString& path)
{
    m_fileName = path;
    QString shown = path;
    shortenFolderNameForDisplay(shown);
    fileLabel->setText(QStringLiteral("File: ") + shown);
    fileLabel->setToolTip(path.toHtmlEscaped());
}

void CVolumeInfoDialog::setBitDepth(const QString& bits)
{
    const int index = dataTypeBox->findText(bits + QStringLiteral("-bit"));
    if (index >= 0) dataTypeBox->setCurrentIndex(index);
}

void CVolumeInfoDialog::setColumns(int columns)
{
    widthBox->setValue(columns);
}

void CVolumeInfoDialog::setRows(int rows)
{
    heightBox->setValue(rows);
}

void CVolumeInfoDialog::setFrames(int frames)
{
    framesBox->setValue(frames);
}

void CVolumeInfoDialog::setHeaderOffset(int bytes)
{
    headerOffsetBox->setValue(bytes);
}

void CVolumeInfoDialog::setSignedState(int state)
{
    signedBox->setChecked(state != 0);
}

void CVolumeInfoDialog::setRowSpacing(double mm)
{
    rowSpacingBox->setValue(mm);
}

void CVolumeInfoDialog::setColumnSpacing(double mm)
{
    columnSpacingBox->setValue(mm);
}

void CVolumeInfoDialog::setSliceSpacing(double mm)
{
    sliceSpacingBox->setValue(mm);
}

void CVolumeInfoDialog::setResolution(int percent)
{
    resolutionSlider->setValue(percent);
}

void CVolumeInfoDialog::setValidateFile(bool validate)
{
    m_validateFile = validate;
}

float CVolumeInfoDialog::getRowSpacing() const
{
    return static_cast<float>(rowSpacingBox->value());
}

float CVolumeInfoDialog::getColumnSpacing() const
{
    return static_cast<float>(columnSpacingBox->value());
}

float CVolumeInfoDialog::getSliceSpacing() const
{
    return static_cast<float>(sliceSpacingBox->value());
}

int CVolumeInfoDialog::getResolution() const
{
    return resolutionSlider->value();
}

int CVolumeInfoDialog::getColumns() const
{
    return widthBox->value();
}

int CVolumeInfoDialog::getRows() const
{
    return heightBox->value();
}

int CVolumeInfoDialog::getFrames() const
{
    return framesBox->value();
}

int CVolumeInfoDialog::getHeaderOffset() const
{
    return headerOffsetBox->value();
}

int CVolumeInfoDialog::getBitDepth() const
{
    return dataTypeBox->currentIndex() == 1 ? 16 : 8;
}

bool CVolumeInfoDialog::isSigned() const
{
    return signedBox->isChecked();
}

bool CVolumeInfoDialog::isMemoryGood() const
{
    return m_memoryGood;
}
