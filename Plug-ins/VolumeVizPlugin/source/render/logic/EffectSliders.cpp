#include "render/logic/EffectSliders.h"

namespace effect_sliders {

namespace {

/// Rounds as the whole program does where it rounds at all: adds a half and cuts off.
int rounded(double value, int lowest, int highest)
{
    const double raised = 0.5 + value;
    if (!(raised > lowest)) return lowest;
    return raised >= highest ? highest : static_cast<int>(raised);
}

}  // namespace

float intensityAt(int slider)
{
    return static_cast<float>(slider / 10.0);
}

int ofIntensity(double intensity)
{
    return rounded(intensity * 10.0, 0, 10);
}

float shininessAt(int slider)
{
    return static_cast<float>(slider);
}

int ofShininess(double shininess)
{
    return rounded(shininess, 1, 10);
}

float emissionAt(int slider)
{
    return static_cast<float>(slider / 100.0);
}

int ofEmission(double emission)
{
    return rounded(emission * 100.0, 0, 10);
}

float thresholdAt(int slider)
{
    return static_cast<float>(1.0 / (slider * 5.0));
}

int ofThreshold(double seconds)
{
    return rounded(1.0 / (5.0 * seconds), 1, 10);
}

QString ambientLabel(int slider)
{
    return QStringLiteral("Ambient Intensity: %1%\t").arg(slider * 10);
}

QString diffuseLabel(int slider)
{
    return QStringLiteral("Diffuse Intensity: %1%\t").arg(slider * 10);
}

QString highlightLabel(int slider)
{
    return QStringLiteral("Highlight Intensity: %1%").arg(slider * 10);
}

QString shininessLabel(int slider)
{
    return QStringLiteral("Highlight Shininess: %1 ").arg(slider);
}

QString emissionLabel(int slider)
{
    return QStringLiteral("Emission  Intensity: %1 ").arg(slider);
}

}  // namespace effect_sliders
