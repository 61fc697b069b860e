#pragma once

/// The fragment programs as whole texts, composed at build time from the pieces of this folder. GLSL of
/// OpenGL 2.0 with the compatibility built-ins; the fixed-function vertex stage stands before them.
///
/// The two volume texts share everything but their filters: `BESTQUALITY` has a sample filter and a filtered
/// gradient, `BESTPERFORMANCE` has neither and divides the alpha by 3.
extern const char* const volumeQualityText;
extern const char* const volumePerformanceText;
/// The picture of a single slice.
extern const char* const sliceText;
