// Callers connect by name: a signal or slot whose text changes would be lost without an error at build time.
#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVPreferenceSignalHandler.h"

#include <QMetaMethod>
#include <gmock/gmock.h>

namespace {

bool hasSignal(QMetaObject const& type, char const* text)
{
    return type.indexOfSignal(QMetaObject::normalizedSignature(text)) >= 0;
}

bool hasSlot(QMetaObject const& type, char const* text)
{
    return type.indexOfSlot(QMetaObject::normalizedSignature(text)) >= 0;
}

TEST(SignalNames, OfASequence)
{
    QMetaObject const& type = CHVSSequenceDataset::staticMetaObject;
    EXPECT_TRUE(hasSignal(type, "saveExistingAnalysisResult()"));
    EXPECT_TRUE(hasSignal(type, "updateOnChangeSequence()"));
    EXPECT_TRUE(hasSignal(type, "sequencePropertyChanged(CHVSSequenceDataset*)"));
}

TEST(SignalNames, OfWindows)
{
    EXPECT_TRUE(hasSignal(CHVSSequenceWindow::staticMetaObject, "update3DToolButtonsStates(S3DControls *)"));
    QMetaObject const& frame = CHVSMdiSubWindow::staticMetaObject;
    EXPECT_TRUE(hasSignal(frame, "aboutToActivate()"));
    EXPECT_TRUE(hasSignal(frame, "windowStateChanged ( Qt::WindowStates , Qt::WindowStates )"));
}

TEST(SignalNames, OfPreferences)
{
    QMetaObject const& type = CHVPreferenceSignalHandler::staticMetaObject;
    EXPECT_TRUE(hasSignal(type, "activeUserChanged()"));
    EXPECT_TRUE(hasSignal(type, "updatePreferenceSetting()"));
}

TEST(SignalNames, OfAVolumeNode)
{
    QMetaObject const& type = C3DVolumeData::staticMetaObject;
    EXPECT_TRUE(hasSignal(type, "boundingBoxChanged()"));
    EXPECT_TRUE(hasSignal(type, "volumeDataChanged()"));
    EXPECT_TRUE(hasSignal(C3DSGManager::staticMetaObject, "transformObjectChanged(QString)"));
}

TEST(SignalNames, RequestsOfAPlugin)
{
    QMetaObject const& type = CHVToolPalettePluginBase::staticMetaObject;
    EXPECT_TRUE(hasSignal(type, "signalCreate3DSceneSequence(QString)"));
    EXPECT_TRUE(hasSignal(type, "signalLoadFile(QString,bool,tag_estatus*,downloaded_save_data*)"));
    EXPECT_TRUE(hasSignal(type, "addWidgetToWorkspace(QWidget*)"));
    EXPECT_TRUE(hasSignal(type, "updatePluginValidity(QWidget*,bool)"));
    EXPECT_TRUE(hasSignal(type, "loadingFailed()"));
}

TEST(SignalNames, EventsForAPluginAreSlots)
{
    QMetaObject const& type = CHVToolPalettePluginBase::staticMetaObject;
    for (char const* slot :
         {"onSignalDatasetChanged(CHVSDataset*)", "onSignalSequenceChanged(CHVSSequenceDataset*)",
          "onSignalDatasetRemoved(CHVSDataset*)", "onSignalSequenceAdded(CHVSSequenceDataset*)",
          "onSignalSequenceRemoved(CHVSSequenceDataset*)", "onSignalUpdatePluginPalette(QString)",
          "onSignal3DViewChanged(bool)", "onSignalTransformObjectChanged(QString)", "onDatasetSavedSignal()",
          "onLoadResultsSignal(QString,QString)",
          "onToolPalettePluginStatusModified(ETOOLPALETTE_PLUGIN_STATUS_MODIFIER)"}) {
        EXPECT_TRUE(hasSlot(type, slot)) << slot;
    }
}

}  // namespace
