#pragma once

#include <string>
#include <vector>

/// Reads the attributes that a browse shows from the headers of files, by GDCM's scanner. Returns how many
/// files it could read.
std::size_t scanByGdcm(const std::vector<std::string>& files);
