#pragma once

#include <string>

namespace phantom {

/// A DICOM identifier made from a name alone: the same name gives the same identifier on every machine.
///
/// It has the form that needs no registration (ISO/IEC 9834-8): "2.25." and a UUID as a decimal number. The
/// UUID is of version 8, whose bits are the maker's own affair; here they come from a hash of the name.
std::string uidOf(const std::string& name);

}  // namespace phantom
