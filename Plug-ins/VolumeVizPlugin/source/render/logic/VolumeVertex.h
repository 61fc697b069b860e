#pragma once

/// A corner of the drawn geometry: where it is and which point of the 3D texture it shows.
///
/// The arithmetic runs over all eleven numbers, so a point interpolated along an edge carries its texture
/// coordinate with it.
struct VolumeVertex
{
    double position[4] = {0.0, 0.0, 0.0, 0.0};  ///< x, y, z in millimetres of the volume's own space, and w
    double texture[3] = {0.0, 0.0, 0.0};        ///< s, t, r; 0 to 1 along width, height and depth
    double color[4] = {1.0, 1.0, 1.0, 1.0};     ///< red, green, blue, alpha
};

inline VolumeVertex operator+(const VolumeVertex& a, const VolumeVertex& b) noexcept
{
    VolumeVertex sum;
    for (int i = 0; i < 4; ++i)
        sum.position[i] = a.position[i] + b.position[i];
    for (int i = 0; i < 3; ++i)
        sum.texture[i] = a.texture[i] + b.texture[i];
    for (int i = 0; i < 4; ++i)
        sum.color[i] = a.color[i] + b.color[i];
    return sum;
}

inline VolumeVertex operator-(const VolumeVertex& a, const VolumeVertex& b) noexcept
{
    VolumeVertex difference;
    for (int i = 0; i < 4; ++i)
        difference.position[i] = a.position[i] - b.position[i];
    for (int i = 0; i < 3; ++i)
        difference.texture[i] = a.texture[i] - b.texture[i];
    for (int i = 0; i < 4; ++i)
        difference.color[i] = a.color[i] - b.color[i];
    return difference;
}

inline VolumeVertex operator*(const VolumeVertex& a, double factor) noexcept
{
    VolumeVertex product;
    for (int i = 0; i < 4; ++i)
        product.position[i] = a.position[i] * factor;
    for (int i = 0; i < 3; ++i)
        product.texture[i] = a.texture[i] * factor;
    for (int i = 0; i < 4; ++i)
        product.color[i] = a.color[i] * factor;
    return product;
}

/// The dot product of the positions, w included.
inline double dot(const VolumeVertex& a, const VolumeVertex& b) noexcept
{
    return a.position[0] * b.position[0] + a.position[1] * b.position[1] + a.position[2] * b.position[2] +
           a.position[3] * b.position[3];
}

/// An edge of the box, as the indices of its two corners.
struct VolumeEdge
{
    int first = 0;
    int second = 0;
};
