uniform sampler3D volumeData;
uniform sampler1D colorTable;
uniform bool bSliceUseTransferFunction;
uniform float sliceMinColorBar;   // the colour bar, as shares of the volume's range of values
uniform float sliceMaxColorBar;
uniform float sliceOpacity;

void main()
{
    vec4 v = texture3D(volumeData, gl_TexCoord[0].stp);
    float scalar = v.a;
    // The width of the bar scales the value; the bar's minimum is not subtracted, on purpose.
    if (!bSliceUseTransferFunction) scalar = v[0] / (sliceMaxColorBar - sliceMinColorBar);
    vec4 c = texture1D(colorTable, scalar);
    if (!bSliceUseTransferFunction) c.a = v[0] < sliceMinColorBar ? 0.0 : c.a * sliceOpacity;
    gl_FragColor = c;
}
