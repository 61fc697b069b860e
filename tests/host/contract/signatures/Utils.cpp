#include "Signatures.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVPreferenceSignalHandler.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSFileDialog.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSMessageBox.h"
#include "hvutils/CHVSPalettePixmapView.h"
#include "hvutils/CHVSProgressBar.h"
#include "hvutils/CHVSSettings.h"
#include "hvutils/CHVSStyledItemDelegate.h"
#include "hvutils/CHVUtilityFns.h"
#include "hvutils/CPLPreferenceUser.h"
#include "hvutils/S3DViewSettings.h"
#include "hvutils/Singleton.h"
#include "hvutils/Sleep.h"
#include "hvutils/adjustExpValue.h"
#include "hvutils/deleteFolderTree.h"
#include "hvutils/shortenFolderNameForDisplay.h"
#include "hvutils/updateComboWidget.h"

#include <QComboBox>
#include <QCursor>
#include <QDir>

using Text = QString const&;

static_assert(eStatusSuccess == 0 && std::is_same_v<ESTATUS, tag_estatus>);
static_assert(eStatusUnsupportedFile == 11 && eStatusFileNotWritable == 64 && eStatusFileNotReadable == 65 &&
              eStatusVolumeNotLoaded == 66 && eStatusMovieFormatUnavailable == 76 &&
              eStatusPlanarImageFile == 87);
static_assert(eProcessGeneral == 1 && eProcessAnimationExport == 1024 && eProcessAcquisition == 4096 &&
              eProcessReconstruction == 0x40000 && eProcessAny == 1048575);

GIVES(QString, CHVPreference::getProgramDataPath());
GIVES(QString, CHVPreference::getVerString());
GIVES(QString, CHVPreference::getActiveUserName());
GIVES(CPLPreferenceUser*, CHVPreference::getActiveUser());
GIVES(QString, some<CPLPreferenceUser&>().getUserName());
GIVES(CHVSSettings*, CHVPreference::getSettings());
GIVES(CHVPreferenceSignalHandler*, CHVPreference::getSignalHandler());
GIVES(void, CHVPreference::get3DViewPreferences(some<S3DViewSettings&>()));
GIVES(void, CHVPreference::getWindowsPreferredSize(some<int&>(), some<int&>(), some<bool>()));

GIVES(QString, some<CHVSSettings&>().getRecentFilePath());
GIVES(void, some<CHVSSettings&>().setRecentFilePath(some<QString>()));
GIVES(QString, some<CHVSSettings&>().getBrowsePath());

using Kind = tag_eLongProcessTypes;
GIVES(bool, CHVProcess::isProcessInProgress(some<Kind>()));
GIVES(void, CHVProcess::startLongProcess(some<int>(), some<Kind>(), some<bool>(), some<QString>()));
GIVES(void, CHVProcess::endLongProcess(some<Kind>()));
GIVES(void, CHVProcess::endLongProcess(some<Text>(), some<int>(), some<Kind>()));
GIVES(void, CHVProcess::setProcessMessage(some<Text>(), some<bool*>()));
GIVES(void, CHVProcess::setProcessMessage(some<Text>(), some<int>(), some<bool*>()));
GIVES(void, CHVProcess::setProcessMessage(some<Text>(), some<int>(), some<int>(), some<bool*>()));
GIVES(bool, CHVProcess::isProcessAborted());
GIVES(void, CHVProcess::disableUserInteraction(some<bool>()));
GIVES(bool, CHVProcess::isFast3DRenderingMode());

using Parent = QWidget*;
GIVES(int, CHVSMessageBox::warning(some<Parent>(), some<Text>(), some<Text>(), 1024, 0, 0));
GIVES(int, CHVSMessageBox::information(some<Parent>(), some<Text>(), some<Text>(), 16384, 65536 | 256, 0));
GIVES(int, CHVSMessageBox::error(some<Parent>(), some<Text>(), some<Text>(), 1024, 0, 0));
GIVES(int, CHVSMessageBox::information(some<Parent>(), some<Text>(), some<Text>(), some<Text>(), some<Text>(),
                                       some<Text>(), some<int>(), some<int>()));
GIVES(int, CHVSMessageBox::warning(some<Parent>(), some<Text>(), some<Text>(), some<Text>(), some<Text>(),
                                   some<Text>(), some<int>(), some<int>()));
GIVES(void, CHVSMessageBox::setCancelClicked(some<bool>()));
static_assert(CHVSMessageBox::eOk == 1024 && CHVSMessageBox::eYes == 16384 && CHVSMessageBox::eNo == 65536 &&
              CHVSMessageBox::eNoToAll == 131072 && CHVSMessageBox::eCancel == 4194304 &&
              CHVSMessageBox::eDefault == 256);

GIVES(void, CHVSErrorHandler::errorMessage(some<Parent>(), some<tag_estatus>(), some<QString>()));

GIVES(void, CHVUtilityFns::setCursor(some<QCursor const&>()));
GIVES(void, CHVUtilityFns::restoreCursor());
GIVES(QString, CHVUtilityFns::getAppName());
GIVES(void, CHVUtilityFns::setCanClose(some<bool>()));
GIVES(bool, CHVUtilityFns::getCloseAllClicked());
GIVES(bool, CHVUtilityFns::getNoToAllClicked());
GIVES(void, CHVUtilityFns::setNoToAllClicked(some<bool>()));
GIVES(bool, CHVUtilityFns::isMemoryLoadLimit());

GIVES(CHVSLog*, getLogObject());
GIVES(void, getLogObject()->log(some<QString>(), some<QString>(), some<int>(), some<QString>(), some<long>(),
                                some<bool>()));
static_assert(CHVSLog::eInformation == 1 && CHVSLog::eWarning == 2 && CHVSLog::eError == 3 &&
              CHVSLog::eStatusLine == 16);

static_assert(std::is_base_of_v<QOpenGLWidget, CHVSPalettePixmapView> &&
              std::is_constructible_v<CHVSPalettePixmapView, QWidget*>);
using Bar = CHVSPalettePixmapView&;
GIVES(void, some<Bar>().setPaletteCT(some<HVS_COLORTABLE_TYPES>(), some<float>(), some<float>()));
GIVES(void, some<Bar>().setPaletteCTReverse(some<bool>()));
GIVES(CILPalette, some<Bar>().getPalette());

static_assert(std::is_base_of_v<QDialog, CHVSProgressBar> &&
              std::is_constructible_v<CHVSProgressBar, QWidget*, char const*, bool, QFlags<Qt::WindowType>>);
GIVES(void, some<CHVSProgressBar&>().setProgress(some<int>()));
GIVES(void, some<CHVSProgressBar&>().setActivityText(some<QString>()));
GIVES(void, some<CHVSProgressBar&>().initDialog());

GIVES(tag_estatus, CHVSFileDialog::getSaveFileName(some<Parent>(), some<QString>(), some<QString&>(),
                                                   some<QStringList>(), some<QStringList>()));
GIVES(void, some<CHVSStyledItemDelegate&>().setCustomBackColor(some<QString>()));
GIVES(void, some<CHVSStyledItemDelegate&>().setEnableGridLines(some<bool>()));

GIVES(Singleton*, Singleton::getInstance());
GIVES(void, some<Singleton&>().glOrtho(some<double>(), some<double>(), some<double>(), some<double>(),
                                       some<double>(), some<double>()));
GIVES(void, some<Singleton&>().glViewport(some<int>(), some<int>(), some<int>(), some<int>()));
GIVES(Singleton::OrthoData, some<Singleton&>().getGLOrthoData());
GIVES(Singleton::ViewPortData, some<Singleton&>().getGlViewPortData());

GIVES(bool, deleteFolderTree(some<QDir>()));
GIVES(void, updateComboWidget(some<QComboBox*>(), some<QString>()));
GIVES(void, shortenFolderNameForDisplay(some<QString&>()));
GIVES(void, adjustExpValue(some<QString&>()));
GIVES(void, Sleep(1));
