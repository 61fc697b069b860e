#pragma once

/// The quality text written straight down, without loops of unknown length: the picture that the program's
/// own text must give. Slow, and easy to check line by line.
constexpr const char* kStraightQualityText = R"glsl(
uniform sampler3D volumeData;
uniform sampler1D colorTable;
uniform bool bLighting;
uniform bool bFastRenderingMode;
uniform bool bMedianFilterDenoise;
uniform bool bFilterDenoiseGradient;
uniform vec3 viewVec;
uniform float shininess;
uniform float sliceVoxelInterval;
uniform vec3 voxelTextureSize_Normalized;
uniform float emissionlightCompensation;
uniform float gradientsmooththreshold;

float voxel(vec3 p) { return texture3D(volumeData, p).a; }

float median(vec3 p)
{
    vec3 d = voxelTextureSize_Normalized / sliceVoxelInterval;
    float v[9];
    v[0] = voxel(p);
    v[1] = voxel(p + vec3(-d.x, -d.y, -d.z));
    v[2] = voxel(p + vec3( d.x,  d.y,  d.z));
    v[3] = voxel(p + vec3(-d.x,  d.y, -d.z));
    v[4] = voxel(p + vec3( d.x, -d.y,  d.z));
    v[5] = voxel(p + vec3(-d.x, -d.y,  d.z));
    v[6] = voxel(p + vec3( d.x,  d.y, -d.z));
    v[7] = voxel(p + vec3(-d.x,  d.y,  d.z));
    v[8] = voxel(p + vec3( d.x, -d.y, -d.z));
    for (int last = 8; last > 0; --last)
        for (int i = 0; i < 8; ++i)
            if (i < last) {
                float low = min(v[i], v[i + 1]);
                v[i + 1] = v[i] + v[i + 1] - low;
                v[i] = low;
            }
    return v[4];
}

vec3 gradient(vec3 p)
{
    vec3 v = voxelTextureSize_Normalized;
    return vec3(voxel(p + vec3(v.x, 0, 0)) - voxel(p - vec3(v.x, 0, 0)),
                voxel(p + vec3(0, v.y, 0)) - voxel(p - vec3(0, v.y, 0)),
                voxel(p + vec3(0, 0, v.z)) - voxel(p - vec3(0, 0, v.z))) / 2.0;
}

vec3 neighbour(vec3 p, vec3 g0)
{
    vec3 g = gradient(p);
    return length(g) > gradientsmooththreshold ? g0 : g;
}

vec3 filtered(vec3 p)
{
    vec3 g0 = gradient(p);
    if (length(g0) > gradientsmooththreshold) return g0;
    vec3 d = 1.5 * voxelTextureSize_Normalized;
    vec3 g1 = neighbour(p + vec3(-d.x, -d.y, -d.z), g0);
    vec3 g2 = neighbour(p + vec3( d.x,  d.y,  d.z), g0);
    vec3 g3 = neighbour(p + vec3(-d.x,  d.y, -d.z), g0);
    vec3 g4 = neighbour(p + vec3( d.x, -d.y,  d.z), g0);
    vec3 g5 = neighbour(p + vec3(-d.x, -d.y,  d.z), g0);
    vec3 g6 = neighbour(p + vec3( d.x,  d.y, -d.z), g0);
    vec3 g7 = neighbour(p + vec3(-d.x,  d.y,  d.z), g0);
    vec3 g8 = neighbour(p + vec3( d.x, -d.y, -d.z), g0);
    vec3 mean = mix(mix(mix(g1, g2, 0.5), mix(g3, g4, 0.5), 0.5),
                    mix(mix(g5, g6, 0.5), mix(g7, g8, 0.5), 0.5), 0.5);
    return 0.1 * g0 + 0.9 * mean;
}

void main()
{
    vec3 p = gl_TexCoord[0].stp;
    float v = voxel(p);
    if (!bFastRenderingMode && bMedianFilterDenoise) v = median(p);
    vec4 c = texture1D(colorTable, v);
    vec4 color = c;
    if (bLighting && c.a > (bFastRenderingMode ? 0.3 : 0.01)) {
        vec3 n = gradient(p);
        if (!bFastRenderingMode && bFilterDenoiseGradient) n = filtered(p);
        float L = length(n);
        if (L > (bFastRenderingMode ? 0.01 : 0.001)) {
            vec3 N = n / L;
            vec3 E = normalize(viewVec);
            float d = abs(dot(N, E));
            color = gl_LightSource[0].ambient * c + emissionlightCompensation + d * c * gl_LightSource[0].diffuse;
            vec3 H = normalize(viewVec + viewVec);
            color += pow(max(0.0, dot(N, H)), shininess) * gl_LightSource[0].specular;
        }
    }
    color.a = (1.0 - pow(1.0 - c.a, sliceVoxelInterval)) * 255.0 / 256.0;
    gl_FragColor = color;
    gl_FragDepth = color.a < 0.1 ? 1.0 : gl_FragCoord.z;
}
)glsl";
