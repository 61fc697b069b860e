#include "Signatures.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CDicomImporter.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSImageDetails.h"
#include "hvapi/sequence/CHVSImageList.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CAutoProgressUpdate.h"
#include "hvapi/windows/CHVSImageWindow.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvapi/windows/CHVSSimpleImageView.h"

using Sequence = CHVSSequenceDataset&;
GIVES(CHVSSequenceDataset*, CHVSSequenceDataset::getSequenceDataset(some<QString>()));
GIVES(QString, some<Sequence>().getSequenceID());
GIVES(C3DSGManager*, some<Sequence>().get3DSGManager());
GIVES(QString, some<Sequence>().getSequenceInfoPath());
GIVES(CPLSequenceInfo*, some<Sequence>().getSequenceInfo());
GIVES(bool, some<Sequence>().isSLASequence());
GIVES(bool, some<Sequence>().isCTSequence(some<bool>()));
GIVES(bool, some<Sequence>().is3DSceneOnlySequence());
GIVES(bool, some<Sequence>().isLoadedAsAGroup());
GIVES(bool, some<Sequence>().isDatasetAcquisitionInProgress());
GIVES(void, some<Sequence>().setLoadedVolumetricData(some<QStringList>()));
GIVES(void, some<Sequence>().addRestoreResult(some<QString>(), some<QString>()));
GIVES(QStringList, some<Sequence>().getClickNumbers());
GIVES(QList<CHVSDataset*>, some<Sequence>().getDatasets());

using Dataset = CHVSDataset&;
GIVES(CHVSDataset*, CHVSDataset::getDataset(some<QString const&>()));
GIVES(bool, some<Dataset>().isPartOfSequence());
GIVES(CHVSSequenceDataset*, some<Dataset>().getSequenceDataset());
GIVES(CILImage*, some<Dataset>().getCoreImage(some<tag_eimagetype>()));
GIVES(CHVSImageDetails*, some<Dataset>().getImage(some<tag_eimagetype>()));
GIVES(CHVSImageList*, some<Dataset>().getBackupImageList());
GIVES(double, some<Dataset>().getFOVForImage(some<tag_eimagetype>()));
GIVES(bool, some<Dataset>().isXrayDataset());
GIVES(CPLClickInfo*, some<Dataset>().getClickInfo());
GIVES(QString, some<Dataset>().getFolderPath());
GIVES(void, some<Dataset>().addNewImage(some<tag_snewimageinfo&>()));
GIVES(void, some<Dataset>().setNewImageAdded(some<bool>()));
GIVES(void, some<Dataset>().setModified(some<bool>()));
GIVES(CILImage*, some<CHVSImageDetails&>().getCoreImage());
GIVES(CHVSImageWindow*, some<CHVSImageDetails&>().getImageWindow());
GIVES(CHVSImageDetails*, some<CHVSImageList&>().getImage(some<tag_eimagetype>()));

static_assert(std::is_base_of_v<QWidget, CHVSChildWindow> &&
              std::is_base_of_v<CHVSChildWindow, CHVSSequenceWindow> &&
              std::is_base_of_v<CHVSChildWindow, CHVSImageWindow>);
GIVES(CHVSChildWindow*, CHVSChildWindow::getActiveChildWnd());
GIVES(CHVSSequenceWindow*, CHVSSequenceWindow::getSequenceWindow(some<CHVSSequenceDataset*>()));
using Window = CHVSSequenceWindow&;
GIVES(C3DScene*, some<Window>().get3DScene());
GIVES(QString, some<Window>().getCurrentTabName());
GIVES(bool, some<Window>().is3DSceneOnlySequence());
GIVES(void, some<Window>().onSignal3DViewChanged(some<bool>()));
GIVES(void, some<Window>().onSignalUpdatePreference());
GIVES(void, some<Window>().init3DMeasurementValues());
GIVES(void, some<Window>().updateSequenceView());

/// A window of another host: what it may override.
class ChildWindow : public CHVSChildWindow
{
public:
    bool isSequenceWindow() override;
    CHVSDataset* getActiveDataset() override;
    CHVSSequenceDataset* getWindowSequence() override;
    C3DSGManager* getWindow3DSGManager() override;
    void prepare3DView() override;
    void update3DLayout() override;
    tag_estatus saveSequence() override;
    bool isClosing() override;
    SWindowControls* getWindowControls() override;
    void apply3DControls(S3DControls*) override;
    void set3DToolsStates() override;
};
GIVES(S3DControls, SWindowControls().m_3DControls);

static_assert(std::is_base_of_v<QMdiSubWindow, CHVSMdiSubWindow>);
GIVES(void, some<CHVSMdiSubWindow&>().showWindow());
GIVES(void, some<CHVSMdiSubWindow&>().hideWindow());
GIVES(void, some<CHVSImageWindow&>().redraw());

static_assert(std::is_base_of_v<QThread, CAutoProgressUpdate> &&
              std::is_constructible_v<CAutoProgressUpdate, QString>);
GIVES(void, some<CAutoProgressUpdate&>().stop());

static_assert(std::is_constructible_v<CHVSSimpleImageView, QWidget*, char const*, CILImage*>);
GIVES(void, some<CHVSSimpleImageView&>().setScaleUnits(static_cast<tag_escaleunit>(1)));
GIVES(void, some<CHVSSimpleImageView&>().setPixelSpacingForImage(some<float>(), some<float>()));
GIVES(void, some<CHVSSimpleImageView&>().showMenuItems(some<Right_epopupMenu>()));

static_assert(std::is_base_of_v<CDicomReader, CDicomImporter> &&
              std::is_default_constructible_v<CDicomImporter>);
GIVES(tag_estatus, some<CDicomImporter&>().initDicomImporter(some<QString>()));
GIVES(bool, some<CDicomImporter&>().isDicom(true));
