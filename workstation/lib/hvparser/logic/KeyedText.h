#pragma once

#include "hvparser/hvparser_global.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

// The text of sections and keys in which sequences are described:
//
//     # a comment
//     [Section]
//     Key = value
//     Another Key = "value with blanks at its ends  "
//
// What was read is written back byte for byte: comments, blank lines, the order, repeated sections, line ends
// and lines that make no sense included. Only what was changed is written anew.
namespace hvparser {

// A line, or several lines that hold no key.
struct KeyedLine
{
    QByteArray raw;  // with its line end
    QString key;     // empty: no key in it
    QString value;
};

struct KeyedSection
{
    QByteArray head;  // the line with its name; empty for what stands before the first section
    QString name;
    std::vector<KeyedLine> lines;
};

struct KeyedText
{
    std::vector<KeyedSection> sections;  // the first one is always that before the first name
    QByteArray newline = "\n";           // line end of new lines: that of the first line
    QStringList complaints;              // lines that make no sense, for the log; the first few only
};

// Longest text that is taken, in bytes.
constexpr qint64 longestKeyedText = 4 << 20;

HVPARSER_EXPORT KeyedText parseKeyedText(QByteArray const& bytes);
HVPARSER_EXPORT QByteArray writeKeyedText(KeyedText const& text);
HVPARSER_EXPORT void writeSection(KeyedSection const& section, QByteArray const& newline, QByteArray& bytes);

// A section of that name without keys; null head and name when the name can't stand in a file.
HVPARSER_EXPORT KeyedSection makeSection(QString const& name, QByteArray const& newline);

// First line with that key, case ignored; null when there is none.
HVPARSER_EXPORT KeyedLine const* findKey(KeyedSection const& section, QString const& key);

// Gives a key another value; adds it behind the last key when there is none. False for a key that can't stand
// in a file: empty, blank at an end, with "=", a control character or a line break in it, or beginning like a
// comment or a section.
HVPARSER_EXPORT bool setKey(KeyedSection& section, QString const& key, QString const& value,
                            QByteArray const& newline);
// Takes every line of that key out. False when there was none.
HVPARSER_EXPORT bool removeKey(KeyedSection& section, QString const& key);

// A value as it stands behind the "=": in quotes, with \n \r \t \" and \\, where it has blanks at its ends,
// control characters or a quote at its start; else as it is. And back.
HVPARSER_EXPORT QString encodeValue(QString const& value);
HVPARSER_EXPORT QString decodeValue(QString const& text);

}  // namespace hvparser
