float voxelAt(vec3 p)
{
    return texture3D(volumeData, p).a;
}

vec3 surfaceGradient(vec3 p, bool wanted)
{
    return gradient(p, wanted);
}
