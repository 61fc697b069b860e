#pragma once

#include "hvparser/hvparser_global.h"
#include "hvutils/tag_estatus.h"

#include <QString>
#include <memory>

class CPLSection;

// The file "SequenceInfo.txt" of an image sequence.
class HVPARSER_EXPORT CPLSequenceInfo
{
public:
    struct Private;

    CPLSequenceInfo();
    ~CPLSequenceInfo();

    bool isSectionPresent(QString section) const;

    // A section by name; null when there is none. Owned by this object.
    CPLSection* operator[](QString section);

    // Folder of the file, with "/" at its end; empty when the sequence was never saved.
    QString getSequenceInfoPath() const;

    // Writes the file, whole or not at all; its folder must exist. 0 on success, else the log has the reason.
    tag_estatus saveFile(QString path);

private:
    Q_DISABLE_COPY(CPLSequenceInfo)
    std::unique_ptr<Private> d;
};
