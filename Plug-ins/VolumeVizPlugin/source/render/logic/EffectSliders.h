#pragma once

#include <QString>

/// What the sliders of the render effects stand for. A node's value outside a slider's range becomes the
/// nearer end; one that is no number, the lower end.
namespace effect_sliders {

/// Share of light per step of the ambient, diffuse and highlight sliders (0 to 10): tenths.
float intensityAt(int slider);
int ofIntensity(double intensity);
/// The exponent itself (1 to 10).
float shininessAt(int slider);
int ofShininess(double shininess);
/// Hundredths (0 to 10).
float emissionAt(int slider);
int ofEmission(double emission);
/// Frame-time limit in seconds (slider 1 to 10): 0.2 s at 1, 0.02 s at 10.
float thresholdAt(int slider);
int ofThreshold(double seconds);

QString ambientLabel(int slider);
QString diffuseLabel(int slider);
QString highlightLabel(int slider);
QString shininessLabel(int slider);
QString emissionLabel(int slider);

/// Positions of the five sliders of the light.
struct Light
{
    int ambient;
    int diffuse;
    int highlight;
    int shininess;
    int emission;
};
constexpr Light defaultLight{2, 8, 3, 6, 6};
constexpr Light highContrastLight{2, 10, 5, 6, 4};

}  // namespace effect_sliders
