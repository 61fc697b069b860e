#pragma once

#include "Turntable.h"

#include "hvutils/tag_estatus.h"

class C3DScene;

enum class TurntableOutcome
{
    Written,
    Aborted,      ///< by the user
    ViewChanged,  ///< the view was resized, hidden or closed meanwhile
    Failed
};

/// Writes a movie of one turn of the scene about the vertical of its window, in the size of the view, as a
/// long process that the user can abort. Events are handled between the frames, with the user's input kept
/// from the windows; the scene may go meanwhile. Its own camera stays where it is.
///
/// `path` has the suffix of a kind of movie. A file of that name is replaced when the movie is whole;
/// otherwise it stays, and nothing is left of the movie. `status` tells why it failed.
TurntableOutcome exportTurntable(C3DScene& scene, const Turntable& turn, const QString& path,
                                 tag_estatus& status);
