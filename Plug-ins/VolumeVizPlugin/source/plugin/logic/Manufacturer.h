#pragma once

#include <QString>

/// Number of the maker of a DICOM series, from the text in its files: 1 "Rigaku", 2 "Brentis", 3 "Qualden",
/// 0 any other. Case is ignored, and the highest number wins in a text with more than one of the names.
int manufacturerNumber(const QString& text);

/// True for a series of "Brentis", ignoring case.
bool isMakersOwn(const QString& text);
