#pragma once

#include "lib/hvapi/sequence/SequenceContents.h"
#include "lib/hvapi/sequence/SequenceDescription.h"

#include <QString>

/// Names of the layout of a sequence on disk.
namespace sequence_names {

inline const QString infoFileName = QStringLiteral("SequenceInfo.txt");
inline const QString clickFileName = QStringLiteral("ClickInfo.txt");
inline const QString ctDataFolder = QStringLiteral("CT Data");
inline const QString sequenceSection = QStringLiteral("Sequence");
inline const QString versionKey = QStringLiteral("Format Version");
inline const QString idKey = QStringLiteral("Sequence ID");
inline const QString typeKey = QStringLiteral("Sequence Type");
inline const QString groupKey = QStringLiteral("Loaded As Group");
inline const QString clicksSection = QStringLiteral("Clicks");
inline const QString volumeSection = QStringLiteral("Loaded Volume");
inline const QString clickSection = QStringLiteral("Click");
inline const QString clickNumberKey = QStringLiteral("Click Number");
inline const QString fileKey = QStringLiteral("File");
inline const QString fieldOfViewKey = QStringLiteral("Field of View");

}  // namespace sequence_names

/// "SLA", "CT", "3D Scene" or "Images", and back with the case ignored; any other text is "Images".
QString typeText(SequenceKind kind);
SequenceKind kindOf(QString const& typeText);

/// Section of a click's info that describes an image of that kind; empty for an unknown one.
QString imageSection(tag_eimagetype type);

/// Reads a "SequenceInfo.txt" and the clicks that it names. False, with the reason in the log, when the file
/// can't be read or describes no sequence.
bool readSequence(QString const& file, SequenceDescription& description, SequenceContents& contents);

/// Reads "ClickInfo.txt" of a folder, named with its trailing "/". Without an info where that can't be read.
ClickContents readClick(QString const& folder);
