#include "plugin/logic/ToolRequest.h"

ToolView viewOfToolRequest(int request)
{
    if (request == 0) return {true, PalettePage::Volume, -1, -1};
    if (request >= 1 && request <= 3) return {true, PalettePage::Slice, 3 - request, request - 1};
    return {};
}
