#pragma once

#include "hvparser/hvparser_global.h"
#include "hvutils/tag_estatus.h"

#include <QString>
#include <memory>

class CPLSection;

// A keyed text file in sections, as it describes one click: the pictures taken at one moment.
class HVPARSER_EXPORT CPLClickInfo
{
public:
    struct Private;

    CPLClickInfo();
    virtual ~CPLClickInfo();

    bool isSectionPresent(QString section) const;
    // 0 when the section was there.
    tag_estatus removeSection(QString section);

    // A section by name; null when there is none. Owned by this object, valid until the section is removed.
    CPLSection* operator[](QString section);

    // Value of a key in a section. 0 on success; `value` is written on success only.
    tag_estatus getValue(QString section, QString key, int* value) const;
    tag_estatus getValue(QString section, QString key, double* value) const;
    tag_estatus getValue(QString section, QString key, QString* value) const;

protected:
    std::unique_ptr<Private> d;

private:
    Q_DISABLE_COPY(CPLClickInfo)
};
