#pragma once

#include "hvutils/tag_estatus.h"

#include <QString>

namespace hvutils {

// What the user reads for a status that is no success.
QString errorText(tag_estatus status);

}  // namespace hvutils
