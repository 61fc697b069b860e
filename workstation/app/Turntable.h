#pragma once

#include <QString>

/// A movie of a scene that turns once round.
struct Turntable
{
    /// One for each degree: small enough a step that edges glide, and at 30 frames a second, which every kind
    /// of movie takes, a turn of twelve seconds.
    int frames = 360;
    int framesPerSecond = 30;

    /// Of a frame from 0, in radians from the first one. The last frame stands one step before the full turn,
    /// so that a player that starts again shows no picture twice. 0 without frames.
    double angle(int frame) const;
    /// Rounded down; 0 where no time passes.
    int durationMs() const;
};

/// Why a movie of the 3D view can't be written now, for the user; empty when it can.
QString whyNoTurntable(bool isViewVisible, bool hasContents, bool canWriteMovies);
