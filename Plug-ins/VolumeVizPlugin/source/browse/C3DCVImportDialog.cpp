#include "browse/C3DCVImportDialog.h"

#include "browse/CVolBrowseListItemModel.h"
#include "browse/CVolBrowseManager.h"
#include "browse/CVolBrowserInfo.h"
#include "browse/LoadTarget.h"
#include "browse/logic/FrameRange.h"
#include "browse/logic/LoadTargetRule.h"
#include "browse/logic/Preview.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSimpleImageView.h"
#include "hvdicom/CDicomReader.h"
#include "hvdicom/CHVDcmImage.h"
#include "hvimage/CILImage.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSSettings.h"
#include "hvutils/CHVSStyledItemDelegate.h"
#include "hvutils/CHVUtilityFns.h"

#include <QCloseEvent>
#include <QCursor>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

C3DCVImportDialog::C3DCVImportDialog(QWidget* parent, const char* name, bool modal, Qt::WindowFlags flags)
    : QDialog(parent, flags)
    , m_pImage(std::make_unique<CILImage>())
    , m_pBrowseManager(std::make_unique<CVolBrowseManager>(this))
{
    setupUi(this);
    if (name) setObjectName(QString::fromLatin1(name));
    setModal(modal);
    m_pModel = new CVolBrowseListItemModel(this);
    m_pCompatibleDataList->setModel(m_pModel);
    auto* const rows = new CHVSStyledItemDelegate(m_pCompatibleDataList);
    rows->setEnableGridLines(true);
    m_pCompatibleDataList->setItemDelegate(rows);
    m_pPreview = new CHVSSimpleImageView(m_pPicturePage, "m_pPreview", m_pImage.get());
    m_pPreview->setAccessibleName(tr("Frame"));
    m_pPicturePageLayout->addWidget(m_pPreview);
    // The nine columns of the list want more room than a frame; the user may share it out otherwise.
    m_pSplitter->setSizes({540, 400});
    m_pListSplitter->setSizes({320, 160});
    C3DCVImportDialog::init();
}

C3DCVImportDialog::~C3DCVImportDialog()
{
    C3DCVImportDialog::destroy();
}

void C3DCVImportDialog::init()
{
    const struct
    {
        const QObject* sender;
        const char* signal;
        const char* slot;
    } connections[] = {
        {m_pCompatibleDataList, SIGNAL(onCurrentSelectionChanged(QModelIndex)),
         SLOT(onChangeCurrentFolderSelection(QModelIndex))},
        {m_pCompatibleDataList, SIGNAL(clicked(QModelIndex)),
         SLOT(onChangeCurrentFolderSelection(QModelIndex))},
        {m_pCompatibleDataList, SIGNAL(doubleClicked(QModelIndex)),
         SLOT(onDoubleClickFolderSelection(QModelIndex))},
        {m_pFileList, SIGNAL(currentRowChanged(int)), SLOT(onChangeCurrentFileSelection(int))},
        {m_pStartSpinBox, SIGNAL(valueChanged(int)), SLOT(onRangeChanged(int))},
        {m_pEndSpinBox, SIGNAL(valueChanged(int)), SLOT(onRangeChanged(int))},
        {m_pFrameSlider, SIGNAL(valueChanged(int)), SLOT(onFrameChanged(int))},
        {m_pSpanSlider, SIGNAL(spanChanged(int, int)), SLOT(onSpanSliderValueChanged(int, int))},
        {m_pStartFrameButton, SIGNAL(clicked()), SLOT(onStartFrameButtonClicked())},
        {m_pEndFrameButton, SIGNAL(clicked()), SLOT(onEndFrameButtonClicked())},
        {m_pPlayButton, SIGNAL(clicked()), SLOT(onAutoPreviewClicked())},
        {m_pAbortButton, SIGNAL(clicked()), SLOT(stopBrowsing())},
        {m_pNewWindowCheckBox, SIGNAL(clicked()), SLOT(updateStatusMessage())},
        {m_pBrowseButton, SIGNAL(clicked()), SLOT(onClickBrowsePath())},
        {m_pLoadButton, SIGNAL(clicked()), SLOT(onLoadButtonClicked())},
    };
    for (const auto& each : connections)
        connect(each.sender, each.signal, this, each.slot);
    connect(m_pAddToListCheckBox, &QCheckBox::toggled, this, [this](bool on) { m_bAddToList = on; });
    m_bAddToList = m_pAddToListCheckBox->isChecked();
    onBrowseEnded();
    clearSelection();
}

void C3DCVImportDialog::destroy()
{
    m_timer.stop();
    const bool wasBrowsing = m_bBrowsing || m_pBrowseManager->isRunning();
    m_pBrowseManager->abort();
    m_pBrowseManager->wait();
    QCoreApplication::removePostedEvents(this);
    disconnect(m_pCompatibleDataList, nullptr, this, nullptr);
    const QList<QWidget*> widgets = findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        disconnect(widget, nullptr, this, nullptr);
    // The last event of the browse, which lets the application be closed again, is not heard any more.
    if (wasBrowsing) CHVUtilityFns::setCanClose(true);
    m_bBrowsing = false;
}

void C3DCVImportDialog::showWindow()
{
    if (auto* const frame = qobject_cast<CHVSMdiSubWindow*>(parentWidget()))
        frame->showWindow();
    else
        show();
}

QStringList C3DCVImportDialog::getSelectedFiles() const
{
    const bool isSeries = m_strFiles.size() > 1;
    const FrameRange range = chosenRange();
    QStringList files;
    for (int row = 0; row < m_strFiles.size(); ++row) {
        if (!isSeries || (row + 1 >= range.first && row + 1 <= range.last)) files << filePath(row);
    }
    return files;
}

int C3DCVImportDialog::getStartFrame() const
{
    return m_pStartSpinBox->value();
}

int C3DCVImportDialog::getEndFrame() const
{
    return m_pEndSpinBox->value();
}

bool C3DCVImportDialog::isLoadInNewWindow() const
{
    return m_pNewWindowCheckBox->isChecked();
}

void C3DCVImportDialog::setStatus(const QString& text)
{
    m_pStatusLabel->setText(text);
}

void C3DCVImportDialog::updateStatusMessage()
{
    StatusFacts facts;
    facts.loadsInNewWindow = isLoadInNewWindow();
    facts.hasFiles = !m_strFiles.isEmpty();
    facts.isCtData = m_bCtDataFolder;
    if (!facts.loadsInNewWindow && facts.hasFiles) {
        const LoadTarget target = activeLoadTarget();
        if (target.isSeenByAnImage) activateSequenceWindow(target.window);
        if (target) facts.targetId = target.sequence->getSequenceID();
    }
    setStatus(statusMessage(facts));
}

void C3DCVImportDialog::onLoadButtonClicked()
{
    m_timer.stop();
}

void C3DCVImportDialog::aboutToActivateWindow()
{
    if (!m_strFiles.isEmpty()) onAutoPreviewClicked();
    updateStatusMessage();
}

void C3DCVImportDialog::onSignalWindowStateChanged(Qt::WindowStates before, Qt::WindowStates now)
{
    const bool wasMinimized = before.testFlag(Qt::WindowMinimized);
    const bool isMinimized = now.testFlag(Qt::WindowMinimized);
    if (isMinimized) m_timer.stop();
    if (wasMinimized && !isMinimized && !m_strFiles.isEmpty()) onAutoPreviewClicked();
}

// Escape does not close the window.
bool C3DCVImportDialog::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->ignore();
        return true;
    }
    return QDialog::event(event);
}

void C3DCVImportDialog::closeEvent(QCloseEvent* event)
{
    m_timer.stop();
    m_pBrowseManager->abort();
    if (auto* const frame = qobject_cast<CHVSMdiSubWindow*>(parentWidget())) frame->hideWindow();
    event->accept();
}
