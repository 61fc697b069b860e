#pragma once

#include "hvutils/hvutils_global.h"

class QString;

// Shortens a path of more than 60 characters to at most 60: folders in its middle give way to "...", the
// beginning and the file name stay as long as they fit, and a file name too long by itself keeps its end.
HVUTILS_EXPORT void shortenFolderNameForDisplay(QString& path);
