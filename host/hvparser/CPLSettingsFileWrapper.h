#pragma once

#include "hvparser/CPLClickInfo.h"
#include "hvparser/hvparser_global.h"

#include <QString>
#include <QStringList>

class CPLSection;

// A keyed text file that maps names shown to the user to file names, grouped by sections: the database of
// results.
class HVPARSER_EXPORT CPLSettingsFileWrapper : public CPLClickInfo
{
public:
    CPLSettingsFileWrapper();
    ~CPLSettingsFileWrapper() override;

    // Read the file, and write it back to the same path. 0 on success. Loading a file that does not exist
    // fails, but saving then makes it.
    tag_estatus load(QString const& path);
    tag_estatus save();

    // Key under which an entry keeps its shown name; key of its file name; prefix of generated names.
    void setMenuNameTag(QString const& tag);
    void setFileNameTag(QString const& tag);
    void setAutoMenuNameTag(QString const& prefix);

    // Shown names of all entries, or of those of one section, in the order of the file.
    QStringList getMenuNames() const;
    QStringList getMenuNames(QString const& section) const;

    // File name of an entry; `dflt` without one.
    QString getFileNameForMenuName(QString const& name, QString dflt) const;
    tag_estatus setFileNameForMenuName(QString const& name, QString const& file);

    // Adds an entry to a section.
    tag_estatus addSection(QString const& section, QString const& name, QString const& file);

    // The entry with this shown name; null when there is none. Owned by this object.
    CPLSection* getSectionByMenuName(QString const& name);

    // The prefix with the lowest number, from 1, that no entry has.
    QString getNextAutoMenuName() const;
};
