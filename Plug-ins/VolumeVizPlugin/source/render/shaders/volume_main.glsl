// The colour c of a voxel in the light at the eye; n is the gradient there and L its length.
vec4 shaded(vec4 c, vec3 n, float L)
{
    vec3 N = n / L;
    vec3 E = normalize(viewVec);
    float towards = dot(N, E);
    // Diffuse light falls on both sides of a surface, the highlight on the side whose gradient points along
    // the view. The light sits at the eye, so the half vector is the view vector.
    vec4 color = gl_LightSource[0].ambient * c + emissionlightCompensation
               + abs(towards) * c * gl_LightSource[0].diffuse;
    return color + pow(max(0.0, towards), shininess) * gl_LightSource[0].specular;
}

void main()
{
    const float depthAlphaThreshold = 0.1;
    float normalThreshold = bFastRenderingMode ? 0.01 : 0.001;
    float alphaThreshold = bFastRenderingMode ? 0.3 : 0.01;

    vec3 p = gl_TexCoord[0].stp;
    vec4 c = texture1D(colorTable, voxelAt(p));
    vec4 color = c;
    bool lit = bLighting && c.a > alphaThreshold;
    vec3 n = surfaceGradient(p, lit);
    float L = length(n);
    if (lit && L > normalThreshold) color = shaded(c, n, L);

    // Opacity of a slice that stands for sliceVoxelInterval voxels. 255/256 keeps a full alpha out.
    color.a = (1.0 - pow(1.0 - c.a, sliceVoxelInterval)) * 255.0 / 256.0;
#ifdef BESTPERFORMANCE
    color.a = color.a / 3.0;
#endif
    gl_FragColor = color;
    // What is nearly clear leaves the depth buffer at its far value.
    gl_FragDepth = color.a < depthAlphaThreshold ? 1.0 : gl_FragCoord.z;
}
