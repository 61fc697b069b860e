#include "Turntable.h"

namespace {

constexpr double pi = 3.14159265358979323846;

}  // namespace

double Turntable::angle(int frame) const
{
    return frames > 0 ? 2.0 * pi * frame / frames : 0.0;
}

int Turntable::durationMs() const
{
    return frames > 0 && framesPerSecond > 0 ? static_cast<int>(1000.0 * frames / framesPerSecond) : 0;
}

QString whyNoTurntable(bool isViewVisible, bool hasContents, bool canWriteMovies)
{
    if (!isViewVisible) return QStringLiteral("There is no 3D view in front that could be turned.");
    if (!hasContents) return QStringLiteral("The 3D view is empty.");
    if (!canWriteMovies) return QStringLiteral("This system has no encoder for movies.");
    return {};
}
