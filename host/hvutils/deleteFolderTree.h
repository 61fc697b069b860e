#pragma once

#include "hvutils/hvutils_global.h"

class QDir;

// Removes a folder with all its contents; links are removed, never followed. True when the folder is gone,
// also when there was none. Refused, with false, for a relative path, for a file system's root and for the
// home folder or a folder above it.
HVUTILS_EXPORT bool deleteFolderTree(QDir folder);
