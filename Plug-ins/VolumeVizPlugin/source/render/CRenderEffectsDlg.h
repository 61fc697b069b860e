#pragma once

#include "ui_RenderEffectsDlg.h"

#include <QDialog>

#include <functional>

class C3DSGManager;
class C3DScene;
class CGLVolume;
class CHVSSequenceDataset;
class CHVSSequenceWindow;

/// "Rendering Effects": tunes the light of the volume, the smoothing of its gradient, the depth pass against
/// the optical voxels and the limit of the quality mode. It keeps no values: each change goes at once to the
/// node of the current sequence, and the node's values are shown when the dialog opens.
class CRenderEffectsDlg : public QDialog, public Ui_RenderEffectsDlg
{
    Q_OBJECT

public:
    /// `sequence` gives the palette's current sequence, or null, whenever it is asked.
    CRenderEffectsDlg(QWidget* palette, const char* name, std::function<CHVSSequenceDataset*()> sequence,
                      Qt::WindowFlags flags);

    /// Shows the values of the current node; without one the controls stay as they are.
    void updateControls();

signals:
    /// The user wants the gradient smoothed, or not.
    void filterDenoiseGradientChanged(bool bVal);

public slots:
    void onAmbientIntensitySliderReleased(int value);
    void onDiffuseIntensitySliderReleased(int value);
    void onSpecularIntensitySliderReleased(int value);
    void onSpecularShinessSliderReleased(int value);
    void onEmissionCompensationIntensitySlider(int value);
    /// Sends the light of the five sliders to the node.
    void onLightingSettingsUpdated();
    void onClickDefaultSettingsPushButton();
    void onClickHighContrastModePushButton();
    void onDenoiseGradientToggled(bool bVal);
    void onMedianFilterDenoiseToggled(bool bVal);
    void onOpticalDepthRenderPassCheckBoxToggled(bool bVal);
    void onQualityRenderingThresholdSliderReleased(int value);
    void onClickQualityPerormanceResetPushButton();
    void onClickDonePB();

private:
    /// What a change goes to, fetched for each one; all null unless all but the scene are there.
    struct Target
    {
        CHVSSequenceWindow* window = nullptr;
        C3DScene* scene = nullptr;
        C3DSGManager* graph = nullptr;
    };
    Target target() const;
    CGLVolume* node() const;
    void repaintScene() const;
    void connectControls();

    const std::function<CHVSSequenceDataset*()> m_sequence;
};
