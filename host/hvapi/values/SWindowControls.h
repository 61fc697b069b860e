#pragma once

#include "hvapi/values/S3DControls.h"

/// What a workspace window remembers of its tools.
struct SWindowControls
{
    S3DControls m_3DControls;
};
