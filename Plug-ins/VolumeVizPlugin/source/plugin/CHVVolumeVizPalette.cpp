#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVPreferenceSignalHandler.h"
#include "hvutils/CHVSPalettePixmapView.h"
#include "hvutils/deleteFolderTree.h"
#include "plugin/PaletteTarget.h"
#include "plugin/PluginLog.h"
#include "plugin/RenderMeter.h"
#include "plugin/WidgetSync.h"
#include "plugin/logic/ColorTableNames.h"
#include "plugin/logic/TempFolders.h"

#include <QButtonGroup>
#include <QDir>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>

namespace {

void removeTempRoot()
{
    const QDir root(tempRoot(CHVPreference::getProgramDataPath()));
    if (root.exists()) deleteFolderTree(root);
}

}  // namespace

CHVVolumeVizPalette::CHVVolumeVizPalette(QWidget* parent, const char* name, bool modal, Qt::WindowFlags flags)
    : QDialog(parent, flags)
    , m_pRenderMeter(std::make_unique<RenderMeter>())
{
    if (name) setObjectName(QLatin1String(name));
    setModal(modal);
    setupUi(this);
    CHVVolumeVizPalette::initPalette();
}

CHVVolumeVizPalette::~CHVVolumeVizPalette()
{
    CHVVolumeVizPalette::cleanupPalette();
}

QSize CHVVolumeVizPalette::sizeHint() const
{
    return {270, QDialog::sizeHint().height()};
}

void CHVVolumeVizPalette::initPalette()
{
    m_eManufacturer = 0;

    m_pSliceColorButtonGroup = new QButtonGroup(this);
    m_pSliceColorButtonGroup->addButton(m_pSliceUseColorTable, 0);
    m_pSliceColorButtonGroup->addButton(m_pSliceUseTransferFunction, 1);
    m_pSliceColorButtonGroup->setExclusive(true);
    m_pSliceUseColorTable->setChecked(true);
    m_pSliceUseTransferFunction->setChecked(false);
    createTransferFunction();

    m_pSequenceDataset = nullptr;
    m_strSequenceID = QString();
    fillColorTables();
    createResultsTab();
    connectControls();

    m_pSliceMinIntensitySpinBox->setRange(0, 100);
    m_pSliceMaxIntensitySpinBox->setRange(0, 100);
    m_pSliceMinIntensitySlider->setRange(0, 100);
    m_pSliceMaxIntensitySlider->setRange(0, 100);

    createColorBars();

    m_bLoadFromFileList = false;
    m_bHistogramDirty = false;
    m_bResultNameEdited = false;
    m_bDroppedFiles = false;
    setAcceptDrops(true);
    m_pLODSlider->setTracking(false);
    m_pSliceViewLayout = new QGridLayout(m_pSliceViewerFrame);
    m_pSliceViewLayout->setContentsMargins(0, 0, 0, 0);

    disableUnwiredControls(this);
    updateVolumeState(SVolVizControls());  // before the first sequence as in one without a volume
    removeTempRoot();
    testCapability();
}

void CHVVolumeVizPalette::cleanupPalette()
{
    removeTempRoot();
}

void CHVVolumeVizPalette::fillColorTables()
{
    const QStringList names = colorTableNames();
    m_pSliceColorTable->addItems(names);
    m_pSliceColorTable->setCurrentIndex(0);
    m_pColorTableCombo->addItems(names);
    m_pColorTableCombo->setCurrentIndex(0);
    m_pColorTableCombo->setEnabled(true);
    m_pColorTableCombo->setEditable(true);
    m_pColorTableCombo->setInsertPolicy(QComboBox::NoInsert);  // what is typed finds a table and makes none
}

void CHVVolumeVizPalette::createResultsTab()
{
    m_pResultsTabControl = new CHVSResultsTabControl(this, m_pSavedResultsCB, m_pDeleteResultsBtn,
                                                     m_pLoadResultsBtn, m_pSaveResultsBtn);
    m_pResultsTabControl->setTags(QStringLiteral("CORVANE_"), QStringLiteral("CORVANE"));
    m_pResultsTabControl->setSettingFileName(QStringLiteral("XML/CORVANE.txt"));
    m_pResultsTabControl->setResultModifiedFlag(false);
    m_bAutoSave = false;
    // The control enables its buttons by itself; the strip keeps them from the user until they do something.
    m_pResultsStrip->setEnabled(isWired(m_pSaveResultsBtn->objectName()));

    m_pCorvaneLV->setHeaderLabels({tr("Key"), tr("Value")});
    m_pCorvaneLV->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pCorvaneLV->setRootIsDecorated(false);
    m_pCorvaneLV->clear();
}

void CHVVolumeVizPalette::createColorBars()
{
    const auto barIn = [](QWidget* frame) {
        auto* layout = new QVBoxLayout(frame);
        layout->setSpacing(0);
        layout->setContentsMargins(0, 0, 0, 0);
        auto* bar = new CHVSPalettePixmapView(frame);
        layout->addWidget(bar, 1);
        return bar;
    };
    m_pSlicePaletteView = barIn(m_pSliceGLPalettePixmapFrame);
    m_pVolumePaletteView = barIn(m_pGLPalettePixmapFrame);
}

void CHVVolumeVizPalette::connectControls()
{
    CHVPreferenceSignalHandler* preferences = CHVPreference::getSignalHandler();
    connect(preferences, SIGNAL(activeUserChanged()), this, SLOT(onActiveUserChange()));
    connect(preferences, SIGNAL(updatePreferenceSetting()), this, SLOT(updateUserPreferences()));
    connect(m_pLODSlider, SIGNAL(valueChanged(int)), this, SLOT(onReleaseLevelOfDetailSlider(int)));
    connect(m_pResetLODButton, SIGNAL(clicked()), this, SLOT(onLevelOfDetailReset()));
    connect(m_pMIPCheckBox, SIGNAL(toggled(bool)), this, SLOT(onMIPToggled(bool)));
    connect(m_pLightingCheckBox, SIGNAL(toggled(bool)), this, SLOT(onLightingToggled(bool)));
    connect(m_pMedianFilterDenoiseCheckBox, &QCheckBox::toggled, this,
            &CHVVolumeVizPalette::onMedianFilterDenoiseToggled);
    connect(m_pBestRenderQualityCheckBox, &QCheckBox::toggled, this,
            &CHVVolumeVizPalette::onBestRenderQualityCheckBoxToggled);
    connect(m_pRenderEffectsDlgButton, &QToolButton::clicked, this,
            &CHVVolumeVizPalette::onClickRenderEffectsDlgButton);
    connect(m_pVolumeButtonGroup, &QGroupBox::toggled, this,
            &CHVVolumeVizPalette::onVolumeButtonGroupToggled);
    connect(m_pOpacitySlider, SIGNAL(sliderReleased()), this, SLOT(onOpacitySliderReleased()));
    connectHistogramControls();
    connectSliceControls();
    connect(m_pTransformToolBtn, SIGNAL(toggled(bool)), this, SLOT(onToggleTransformTool(bool)));
    connect(m_pTransformResetBtn, SIGNAL(clicked()), this, SLOT(onToggleTransformReset()));
    connect(m_pCroptoolButton, SIGNAL(toggled(bool)), this, SLOT(onToggleCropTool(bool)));
    connect(m_pCropResetBtn, SIGNAL(clicked()), this, SLOT(onCropReset()));
    connect(m_pVolumeInfoDialogButton, SIGNAL(clicked()), this, SLOT(onShowVolumeInfoDialog()));
    connect(m_pMinMaxUnitCB, SIGNAL(currentTextChanged(QString)), this, SLOT(onShownUnitChanged(QString)));
}

void CHVVolumeVizPalette::connectHistogramControls()
{
    connect(m_pColorTableCombo, SIGNAL(currentIndexChanged(int)), this,
            SLOT(onSelChangeVolumeColorTableCombo(int)));
    connect(m_pReverseColorMapCheck, SIGNAL(clicked()), this, SLOT(onClickVolumeColorTableReverseCheckBox()));
    connect(m_pLogarithmicHistogramCheckBox, SIGNAL(toggled(bool)), this,
            SLOT(onLogarithmicHistogramCheckBox(bool)));
    connect(m_pAutoFitToolButton, SIGNAL(clicked()), this, SLOT(onClickAutoFitTB()));
    connect(m_pClearToolButton, SIGNAL(clicked()), this, SLOT(onClickClearTransferFunction()));
    connect(m_pHistogramWindowTB, SIGNAL(clicked()), this, SLOT(onClickHistogramWindowTB()));
    connect(m_pMinMaxUnitCB, SIGNAL(currentIndexChanged(QString)), this,
            SLOT(onMinMaxUnitCBIndexChanged(QString)));
}

HVS_COLORTABLE_TYPES CHVVolumeVizPalette::getColorTableType(int index)
{
    return static_cast<HVS_COLORTABLE_TYPES>(colorTableNumber(index));
}

void CHVVolumeVizPalette::clearStatusMessage()
{
    m_strStatusMessage.clear();
    logMessage(CHVSLog::eStatusLine, QString());
}

void CHVVolumeVizPalette::showStatusMessage(QString text)
{
    if (text.isEmpty()) {
        clearStatusMessage();
        return;
    }
    m_strStatusMessage = text;
    logMessage(CHVSLog::eStatusLine, text);
}

void CHVVolumeVizPalette::onActiveUserChange()
{
    updateUserPreferences();
}

// No preference of a user concerns the palette.
void CHVVolumeVizPalette::updateUserPreferences() {}

void CHVVolumeVizPalette::languageChange()
{
    if (!m_b3DCVSupported) return;
    const QString resultLabel = m_pCorvaneResultLbl->text();
    const QString opacityLabel = label->text();
    retranslateUi(this);
    m_pCorvaneResultLbl->setText(resultLabel);
    label->setText(opacityLabel);
}

void CHVVolumeVizPalette::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) languageChange();
    QDialog::changeEvent(event);
}

bool CHVVolumeVizPalette::event(QEvent* event)
{
    // Escape would close the dialog, and the palette is a part of the host's dock.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->ignore();
        return true;
    }
    return QDialog::event(event);
}
