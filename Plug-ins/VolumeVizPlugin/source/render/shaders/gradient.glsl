// Loops whose number of rounds only the fragment knows: a renderer that runs both sides of every branch still
// leaves a loop once no fragment wants another round, so work that nobody asked for costs one round at most.

// Central difference at p, in voxel values per voxel; 0 where it is not wanted.
vec3 gradient(vec3 p, bool wanted)
{
    vec3 g = vec3(0.0);
    vec3 towards = vec3(1.0, 0.0, 0.0);   // then -z, y, -x, z, -y
    int rounds = wanted ? 6 : 0;
    for (int i = 0; i < rounds; ++i) {
        g += towards * texture3D(volumeData, p + towards * voxelTextureSize_Normalized).x;
        towards = -towards.yzx;
    }
    return 0.5 * g;
}
