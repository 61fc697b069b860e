#pragma once

/// Kind of reconstruction whose quantification is applied.
enum RECONTYPE : int
{
    RECONTYPE_SURFACE = 0,  ///< surface topography
    RECONTYPE_SOURCE = 1    ///< light sources inside the subject
};
