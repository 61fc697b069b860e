#pragma once

#include "hvparser/CPLClickInfo.h"
#include "hvparser/CPLSection.h"
#include "hvparser/CPLSequenceInfo.h"
#include "hvparser/hvparser_global.h"
#include "hvutils/tag_estatus.h"
#include "lib/hvparser/logic/KeyedText.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>
#include <vector>

struct CPLSection::Private
{
    hvparser::KeyedSection text;
    QByteArray newline = "\n";

    static Private& of(CPLSection& section) { return *section.d; }
};

// A text of sections and keys with the file it came from. See hvparser::KeyedText for the layout.
class HVPARSER_EXPORT KeyedFile
{
public:
    KeyedFile();
    ~KeyedFile();

    // Reads a file in the place of what was there. A file that is missing, no plain file, too long or
    // unreadable fails, is logged, and leaves everything as it was. Lines that make no sense are logged and
    // kept.
    tag_estatus load(QString const& path);
    // Writes the file whole or not at all; a failure is logged.
    tag_estatus save(QString const& path) const;

    QByteArray bytes() const;

    // First section of that name, case ignored; null when there is none.
    CPLSection* find(QString const& name) const;
    // The first of that name, made at the end where there is none; null for a name that can't stand in a
    // file.
    CPLSection* findOrAdd(QString const& name);
    // Takes every section of that name out. False when there was none.
    bool remove(QString const& name);
    // In the order of the file.
    QList<CPLSection*> sections() const;

private:
    Q_DISABLE_COPY(KeyedFile)
    void take(hvparser::KeyedText text);

    hvparser::KeyedSection m_head;  // what stands before the first section
    QByteArray m_newline = "\n";
    std::vector<std::unique_ptr<CPLSection>> m_sections;
};

struct CPLClickInfo::Private
{
    KeyedFile file;

    static KeyedFile& fileOf(CPLClickInfo& info) { return info.d->file; }
};

struct CPLSequenceInfo::Private
{
    KeyedFile file;
    QString folder;

    static KeyedFile& fileOf(CPLSequenceInfo& info) { return info.d->file; }
    // Reads the file and takes its folder for the sequence's.
    HVPARSER_EXPORT static tag_estatus load(CPLSequenceInfo& info, QString const& path);
};
