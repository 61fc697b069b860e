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
    CPLSequenceInfo();
    ~CPLSequenceInfo();

    bool isSectionPresent(QString section) const;

    // A section by name; null when there is none. Owned by this object.
    CPLSection* operator[](QString section);

    // Folder of the file, with "/" at its end; empty when the sequence was never saved.
    QString getSequenceInfoPath() const;

    // Writes the file. 0 on success.
    tag_estatus saveFile(QString path);

private:
    Q_DISABLE_COPY(CPLSequenceInfo)
    class Private;
    std::unique_ptr<Private> d;
};
