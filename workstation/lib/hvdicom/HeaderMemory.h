#pragma once

#include "logic/PlainHeader.h"

#include <memory>

namespace hvdicom {

// Header of the regular file at `path` (in the file system's encoding), null where it is no plain DICOM file.
// Each thread remembers the last one it read as long as the file stays as it was: who asks whether a file is
// DICOM asks next what is in it.
std::shared_ptr<PlainHeader const> plainHeader(char const* path);

}  // namespace hvdicom
