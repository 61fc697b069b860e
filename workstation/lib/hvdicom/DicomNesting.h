#pragma once

namespace hvdicom {

// Whether sequences are nested deeper in a file than any document is. `path` in the file system's encoding; a
// file that cannot be read is not.
bool isNestedTooDeep(char const* path);

}  // namespace hvdicom
