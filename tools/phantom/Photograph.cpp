#include "phantom/Photograph.h"

#include "phantom/Mouse.h"
#include "phantom/Noise.h"

#include <algorithm>
#include <cmath>

namespace phantom {
namespace {

constexpr double surfaceLevel = 17;  // half of what the thinnest tissue has
constexpr double nothing = -2 * fieldOfView;

std::vector<double> greyValues(const std::vector<unsigned char>& bytes, int bits)
{
    std::vector<double> values;
    values.reserve(bytes.size());
    if (bits == 8) return {bytes.begin(), bytes.end()};
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        values.push_back((bytes[i] | bytes[i + 1] << 8) / 16.0);
    return values;
}

/// Rows from the top down to the surface in a column of a slice, with its fraction; below 0 without one.
double rowsDown(const std::vector<double>& slice, int size, int column)
{
    double above = 0;
    for (int row = 0; row < size; ++row) {
        const double value = slice[static_cast<std::size_t>(row) * size + column];
        if (value >= surfaceLevel)
            return above < value ? row - (value - surfaceLevel) / (value - above) : row;
        above = value;
    }
    return -1;
}

std::uint16_t pixelOf(double value)
{
    return static_cast<std::uint16_t>(std::clamp(std::lround(value), 0L, 65535L));
}

}  // namespace

const std::vector<Glow>& glows()
{
    static const std::vector<Glow> places{{2.6, -8.4, 4.0, 16000}, {-9.5, -24.0, 2.2, 30000}};
    return places;
}

Photograph::Photograph(const Slices& slices)
    : m_size(slices.size())
    , m_heights(static_cast<std::size_t>(m_size) * m_size, nothing)
{
    // Slices go from the feet to the head, and their first row is the highest.
    for (int i = 0; i < m_size; ++i) {
        const std::vector<double> slice = greyValues(slices.slice(i), slices.bits());
        double* const row = m_heights.data() + static_cast<std::size_t>(m_size - 1 - i) * m_size;
        for (int column = 0; column < m_size; ++column) {
            const double down = rowsDown(slice, m_size, column);
            if (down >= 0) row[column] = millimetres(m_size - 1 - down);
        }
    }
}

double Photograph::millimetres(double pixel) const
{
    return (pixel + 0.5) * fieldOfView / m_size - fieldOfView / 2;
}

double Photograph::height(int column, int row) const
{
    return m_heights[static_cast<std::size_t>(row) * m_size + column];
}

bool Photograph::isMouse(int column, int row) const
{
    const double bed = bedHeight(millimetres(column));
    return height(column, row) > bed + 0.8 + fieldOfView / m_size;
}

/// Share of the light that a surface sends back, by its slope.
double Photograph::shade(int column, int row) const
{
    const int left = std::max(column - 1, 0), right = std::min(column + 1, m_size - 1);
    const int up = std::max(row - 1, 0), down = std::min(row + 1, m_size - 1);
    const double step = fieldOfView / m_size;
    const double acrossX = (height(right, row) - height(left, row)) / (step * (right - left));
    const double acrossY = (height(column, up) - height(column, down)) / (step * (down - up));
    constexpr double lightX = -0.4, lightY = 0.45, lightZ = 0.8;
    const double length = std::sqrt(acrossX * acrossX + acrossY * acrossY + 1);
    return std::max((lightZ - acrossX * lightX - acrossY * lightY) / length, 0.0);
}

std::vector<std::uint16_t> Photograph::daylight() const
{
    constexpr double ground = 60, ofBed = 700, ofMouse = 3600, indirect = 0.2;
    std::vector<std::uint16_t> pixels;
    pixels.reserve(m_heights.size());
    for (int row = 0; row < m_size; ++row) {
        for (int column = 0; column < m_size; ++column) {
            const double light = indirect + (1 - indirect) * shade(column, row);
            const bool seen = height(column, row) > nothing;
            const double value = isMouse(column, row) ? ofMouse * light : seen ? ofBed * light : ground;
            pixels.push_back(pixelOf(value));
        }
    }
    return pixels;
}

std::vector<std::uint16_t> Photograph::glow(double strength, std::uint64_t seed) const
{
    constexpr double dark = 200, ofNoise = 12, onOthers = 0.05;
    const int side = m_size / 2;
    std::vector<std::uint16_t> pixels;
    pixels.reserve(static_cast<std::size_t>(side) * side);
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const double x = millimetres(2 * column + 0.5), y = -millimetres(2 * row + 0.5);
            double light = 0;
            for (const Glow& glow : glows()) {
                const double dx = x - glow.x, dy = y - glow.y;
                light += glow.peak * std::exp(-(dx * dx + dy * dy) / (2 * glow.spread * glow.spread));
            }
            const double seen = isMouse(2 * column, 2 * row) ? 1 : onOthers;
            const auto pixel = static_cast<std::uint64_t>(row) * side + column;
            pixels.push_back(pixelOf(dark + strength * light * seen + ofNoise * noise(seed, pixel)));
        }
    }
    return pixels;
}

}  // namespace phantom
