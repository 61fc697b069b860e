#pragma once

#include "hvapi/hvapi_global.h"

/// An interactive tool of a 3D view, such as the handles that move an object.
class HVAPI_EXPORT C3DToolBase
{
public:
    enum ToolType
    {
        NoTool = 0,
        TransformTool = 1  ///< the family of the transform and crop tools
    };

    virtual ~C3DToolBase();

    virtual ToolType getToolType() const = 0;
    /// Takes the place and the size of its object anew.
    virtual void update() = 0;
};
