#pragma once

#include "render/CGLVolume.h"

/// What tests see of a node's inside: its fields, by name.
struct CGLVolumeProbe
{
    CGLVolume& node;

    bool& sliceColorTableUploaded() { return node.m_bSliceColorTableUploaded; }
    unsigned char (&sliceColorTable())[1024] { return node.m_sliceColorTable; }
    bool& sliceColorTableLocked() { return node.m_bSliceColorTableLocked; }
    bool& volumeColorTableUploaded() { return node.m_bVolumeColorTableUploaded; }
    GLuint& colorTableTex() { return node.m_uColorTableTex; }
    GLuint& sliceColorTableTex() { return node.m_uSliceColorTableTex; }
    double (&cropPlanes())[6][4] { return node.m_cropPlanes; }
    GLenum& blendEquation() { return node.m_eBlendEquation; }
    GLuint& volumeTex() { return node.m_uVolumeTex; }
    GLuint& volumeList() { return node.m_uVolumeList; }
    GLuint& thickSliceList() { return node.m_uThickSliceList; }
    bool& volumeListDirty() { return node.m_bVolumeListDirty; }
    bool& thickSliceListDirty() { return node.m_bThickSliceListDirty; }
    VolumeVertex (&vertices())[8] { return node.m_vertices; }
    VolumeEdge (&edges())[12] { return node.m_edges; }
    int& sliceDensity() { return node.m_nSliceDensity; }
    bool& shadersReady() { return node.m_bShadersReady; }
    bool& volumeTextureDirty() { return node.m_bVolumeTextureDirty; }
    bool& sliceUseTransferFunction() { return node.m_bSliceUseTransferFunction; }
    CILPalette& slicePalette() { return node.m_slicePalette; }
    float& sliceOpacity() { return node.m_fSliceOpacity; }
    float& sliceMin() { return node.m_fSliceMin; }
    float& sliceMax() { return node.m_fSliceMax; }
    matrix& volumeListMatrix() { return node.m_volumeListMatrix; }
    matrix& thickSliceListMatrix() { return node.m_thickSliceListMatrix; }
    CGLProgram& volumeProgram() { return node.m_volumeProgram; }
    CGLProgram& sliceProgram() { return node.m_sliceProgram; }
    float (&ambient())[4] { return node.m_fAmbient; }
    float (&diffuse())[4] { return node.m_fDiffuse; }
    float (&specular())[4] { return node.m_fSpecular; }
    float& gradientSmoothThreshold() { return node.m_fGradientSmoothThreshold; }
    bool& sliceProgramAdded() { return node.m_bSliceProgramAdded; }
    float& defaultThresholdFactor() { return node.m_fDefaultThresholdFactor; }
};
