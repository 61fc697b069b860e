#pragma once

#include "hvapi/windows/CHVSChildWindow.h"

#include <QString>

#include <memory>

class C3DScene;

/// Window of one sequence, with the tabs "Sequence View" and "3D View".
class HVAPI_EXPORT CHVSSequenceWindow : public CHVSChildWindow
{
    Q_OBJECT

public:
    /// For the host: one window a sequence, which must outlive it.
    explicit CHVSSequenceWindow(CHVSSequenceDataset* sequence, QWidget* parent = nullptr);
    ~CHVSSequenceWindow() override;

    /// The sequence's window, or null.
    static CHVSSequenceWindow* getSequenceWindow(CHVSSequenceDataset* sequence);

    /// The scene widget of the 3D tab, or null before that exists.
    C3DScene* get3DScene();
    /// Name of the visible tab: "Sequence View" or "3D View".
    QString getCurrentTabName();
    /// The window holds only a 3D scene.
    bool is3DSceneOnlySequence();

    /// The content of the 3D view changed; with `bClearAnalysisResults`, so that results shown for it are
    /// void.
    void onSignal3DViewChanged(bool bClearAnalysisResults);
    /// Takes the user's preferences of the 3D view over.
    void onSignalUpdatePreference();
    /// Sets measurements in the 3D view back to their start.
    void init3DMeasurementValues();
    /// Shows the sequence's own data anew.
    void updateSequenceView();

    bool isSequenceWindow() override;
    CHVSSequenceDataset* getWindowSequence() override;
    C3DSGManager* getWindow3DSGManager() override;
    void prepare3DView() override;
    void update3DLayout() override;
    /// 0 when the sequence has a folder; else a failure.
    tag_estatus saveSequence() override;
    bool isClosing() override;
    void apply3DControls(S3DControls* controls) override;
    void set3DToolsStates() override;

signals:
    /// The user took up or left one of the host's own 3D tools: whoever shows another tool as active gives it
    /// up. apply3DControls does not emit it.
    void update3DToolButtonsStates(S3DControls* controls);

public:
    struct Private;

private:
    std::unique_ptr<Private> d;
};
