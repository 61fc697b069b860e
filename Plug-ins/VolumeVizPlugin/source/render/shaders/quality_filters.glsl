#define ORDER(a, b) { float low = min(a, b); b = a + b - low; a = low; }

// Signs of the n-th of the eight diagonal neighbours; each odd one lies opposite to the one before.
vec3 corner(float n)
{
    vec3 c = vec3(-1.0, mod(n, 4.0) < 2.0 ? -1.0 : 1.0, n < 4.0 ? -1.0 : 1.0);
    return mod(n, 2.0) < 1.0 ? c : -c;
}

// The sample at p, or, filtered, the median or the arithmetic mean of it and its eight diagonal neighbours, one
// voxel away at full density.
float sampleFilter(vec3 p, bool filtered, bool bMean)
{
    vec3 d = voxelTextureSize_Normalized / sliceVoxelInterval;
    float v0 = 0.0, v1 = 0.0, v2 = 0.0, v3 = 0.0, v4 = 0.0, v5 = 0.0, v6 = 0.0, v7 = 0.0, v8 = 0.0;
    vec3 at = p;
    int rounds = filtered ? 9 : 1;
    for (int i = 0; i < rounds; ++i) {
        v0 = v1; v1 = v2; v2 = v3; v3 = v4; v4 = v5; v5 = v6; v6 = v7; v7 = v8;
        v8 = texture3D(volumeData, at).a;
        at = p + d * corner(float(i));
    }
    if (!filtered) return v8;
    if (bMean) return (v0 + v1 + v2 + v3 + v4 + v5 + v6 + v7 + v8) / 9.0;

    // A bubble sort, as far as the middle needs it: after five rounds v4 to v8 are in place.
    ORDER(v0, v1) ORDER(v1, v2) ORDER(v2, v3) ORDER(v3, v4) ORDER(v4, v5) ORDER(v5, v6) ORDER(v6, v7) ORDER(v7, v8)
    ORDER(v0, v1) ORDER(v1, v2) ORDER(v2, v3) ORDER(v3, v4) ORDER(v4, v5) ORDER(v5, v6) ORDER(v6, v7)
    ORDER(v0, v1) ORDER(v1, v2) ORDER(v2, v3) ORDER(v3, v4) ORDER(v4, v5) ORDER(v5, v6)
    ORDER(v0, v1) ORDER(v1, v2) ORDER(v2, v3) ORDER(v3, v4) ORDER(v4, v5)
    ORDER(v0, v1) ORDER(v1, v2) ORDER(v2, v3) ORDER(v3, v4)
    return v4;
}

// The gradient at p, smoothed where it is no edge: mostly the mean of those at the eight diagonal neighbours,
// with that of p in place of each that lies across an edge.
vec3 filteredGradient(vec3 p, bool wanted, bool filtered)
{
    vec3 g0 = gradient(p, wanted);
    bool smoothed = wanted && filtered && !(length(g0) > gradientsmooththreshold);
    vec3 d = 1.5 * voxelTextureSize_Normalized;
    vec3 pair = vec3(0.0), four = vec3(0.0), mean = vec3(0.0);
    int rounds = smoothed ? 8 : 0;
    for (int i = 0; i < rounds; ++i) {
        float n = float(i);
        vec3 g = gradient(p + d * corner(n), smoothed);
        if (length(g) > gradientsmooththreshold) g = g0;
        // Pairs, pairs of pairs, and the two halves are mixed as they become complete.
        bool pairDone = mod(n, 2.0) > 0.5;
        bool fourDone = mod(n, 4.0) > 2.5;
        pair = pairDone ? mix(pair, g, 0.5) : g;
        if (pairDone) four = fourDone ? mix(four, pair, 0.5) : pair;
        if (fourDone) mean = n > 4.0 ? mix(mean, four, 0.5) : four;
    }
    return smoothed ? mix(g0, mean, 0.9) : g0;
}

float voxelAt(vec3 p)
{
    return sampleFilter(p, bMedianFilterDenoise && !bFastRenderingMode, false);
}

vec3 surfaceGradient(vec3 p, bool wanted)
{
    return filteredGradient(p, wanted, bFilterDenoiseGradient && !bFastRenderingMode);
}
