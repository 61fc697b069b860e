#define BESTQUALITY

uniform bool bMedianFilterDenoise;
uniform bool bFilterDenoiseGradient;
uniform float gradientsmooththreshold;
