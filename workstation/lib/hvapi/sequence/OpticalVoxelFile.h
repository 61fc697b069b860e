#pragma once

#include "lib/hvapi/scene/logic/OpticalVoxels.h"

class C3DSGManager;

/// Reads "OpticalVoxels.txt" of a sequence's folder, named with its trailing "/". Nothing where there is no
/// such file, and, with the reason in the log, where it can't be read.
std::optional<hvscene::OpticalVoxels> readOpticalVoxels(QString const& folder);

/// Puts the voxels into the graph, which needs its root, as its optical volume. Without voxels nothing is
/// done.
void addOpticalVolume(C3DSGManager& graph, std::optional<hvscene::OpticalVoxels> optical);
