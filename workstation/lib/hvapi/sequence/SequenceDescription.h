#pragma once

#include <QString>
#include <QStringList>

/// What a sequence holds.
enum class SequenceKind
{
    Sla,      ///< optical images for light-source analysis
    Ct,       ///< CT data, with or without clicks
    Scene3D,  ///< a 3D scene alone
    Other     ///< any other collection of clicks
};

/// What the application says of a sequence when it creates or changes it.
struct SequenceDescription
{
    QString id;                                 ///< see SequenceRegistry::isValidId
    SequenceKind kind = SequenceKind::Scene3D;  ///< what it holds
    bool loadedAsGroup = false;                 ///< members that were not acquired together
    QString infoPath;          ///< folder on disk, empty for unsaved; a trailing "/" is added
    QStringList clickNumbers;  ///< members, in order of acquisition
};
