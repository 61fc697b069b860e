// What both texts of the volume are told. volumeData holds the voxel in all of its channels.
uniform sampler3D volumeData;
uniform sampler1D colorTable;
uniform bool bLighting;
uniform bool bFastRenderingMode;
uniform bool bRenderInBestPerformance;
uniform vec3 viewVec;                       // viewing direction, of any length
uniform float shininess;
uniform float sliceVoxelInterval;           // distance of two slices, in voxels
uniform vec3 voxelTextureSize_Normalized;   // one voxel in texture coordinates, at the density in force
uniform float emissionlightCompensation;
