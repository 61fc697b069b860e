#include "HVReconSurfaceVolume/ScalarFieldSmoothingAverage.h"
#include "HVReconSurfaceVolume/ScalarFieldSmoothingGaussian.h"
#include "HVReconSurfaceVolume/ScalarFieldSmoothingMedian.h"
#include "HVReconSurfaceVolume/ScalarVolume.h"
#include "HVReconSurfaceVolume/ScriptManagerGUI.h"
#include "Signatures.h"
#include "hvspinbox/QDoubleSpinBoxEx.h"
#include "hvspinbox/QSpanSlider.h"

static_assert(std::is_base_of_v<QSlider, QSpanSlider> && std::is_constructible_v<QSpanSlider, QWidget*>);
GIVES(void, some<QSpanSlider&>().setLowerValue(some<int>()));
GIVES(void, some<QSpanSlider&>().setUpperValue(some<int>()));
GIVES(int, some<QSpanSlider&>().lowerValue());
GIVES(int, some<QSpanSlider&>().upperValue());
GIVES(void, some<QSpanSlider&>().lowerValueChanged(some<int>()));
GIVES(void, some<QSpanSlider&>().upperValueChanged(some<int>()));
GIVES(void, some<QSpanSlider&>().spanChanged(some<int>(), some<int>()));

/// A spin box with a notation of its own.
class NumberBox : public QDoubleSpinBoxEx
{
protected:
    QString textFromValue(double) const override;
    double valueFromText(QString const&) const override;
    QValidator::State validate(QString&, int&) const override;
    void updateDynamicRange() override;
};

static_assert(std::is_constructible_v<ScalarVolume, unsigned char*, std::size_t, std::size_t, std::size_t,
                                      double, double, double>);
using Volume = ScalarVolume&;
GIVES(std::size_t, some<Volume>().getXsize());
GIVES(std::size_t, some<Volume>().getYsize());
GIVES(std::size_t, some<Volume>().getZsize());
GIVES(double, some<Volume>().getXthickness());
GIVES(double, some<Volume>().getYthickness());
GIVES(double, some<Volume>().getZthickness());
GIVES(unsigned char&, some<Volume>().at(some<std::size_t>(), some<std::size_t>(), some<std::size_t>()));
GIVES(void, some<Volume>().processThreshold(some<unsigned char>(), some<unsigned char>()));
GIVES(void, some<Volume>().closeHolesinVolume(some<int>(), some<int>()));

static_assert(std::has_virtual_destructor_v<ScalarFieldSmoothingBase>);
static_assert(std::is_constructible_v<ScalarFieldSmoothingAverage, ScalarVolume&> &&
              std::is_constructible_v<ScalarFieldSmoothingMedian, ScalarVolume&> &&
              std::is_constructible_v<ScalarFieldSmoothingGaussian, ScalarVolume&>);
GIVES(bool, some<ScalarFieldSmoothingBase&>().process(some<long long>(), some<bool>()));

static_assert(std::is_base_of_v<ScriptManagerKernel, ScriptManagerGUI> &&
              std::is_constructible_v<ScriptManagerGUI, QWidget*>);
using Scripts = ScriptManagerGUI&;
GIVES(QWidget*, some<Scripts>().getTabWidget());
GIVES(void, some<Scripts>().setSequence(some<CHVSSequenceDataset*>()));
GIVES(void, some<Scripts>().setSequenceWindow(some<CHVSSequenceWindow*>()));
GIVES(void, some<Scripts>().setScene(some<C3DScene*>()));
GIVES(void, some<Scripts>().setCurrentSequenceId(some<QString&>()));
GIVES(void, some<Scripts>().onVolumeLoadReset());
GIVES(void, some<Scripts>().setThreshold(some<int>()));
GIVES(int, some<Scripts>().getThreshold());
GIVES(void, some<Scripts>().setCropData(some<bool>()));
GIVES(bool, some<Scripts>().isCropData());
GIVES(void, some<Scripts>().setDownsampleBinning(some<int>(), some<int>(), some<int>()));
GIVES(void, some<Scripts>().setOverride(some<bool>()));
GIVES(bool, some<Scripts>().loadScriptFile(some<QString>()));
GIVES(void, some<Scripts>().onClickRun());
GIVES(void, some<Scripts>().onClickReset());
GIVES(void, some<Scripts>().onRunScript(some<QStringList>(), some<bool>()));
GIVES(void, some<Scripts>().update3DView(some<VOXM::volume<unsigned char>&>(), some<bool>(), some<bool>()));
