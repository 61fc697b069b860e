#pragma once

#include <QString>
#include <functional>

namespace hvdicom {

// A message of the DICOM library as it may stand in a log: what it quotes from a file becomes "...", for it
// may be a patient's name. Quoted words for which `isAttributeName` holds stay, and so do names of tags and
// sizes.
QString withoutQuotedValues(QString const& message,
                            std::function<bool(QString const&)> const& isAttributeName);

}  // namespace hvdicom
