#pragma once

#include "hvapi/hvapi_global.h"

#include <QString>
#include <QStringList>

#include <memory>

/// Writer and reader of result files: XML with one element and its attributes on a line, attributes as
/// name="value", names of elements with dots.
class HVAPI_EXPORT CPLResultXMLWrapper
{
public:
    CPLResultXMLWrapper();
    virtual ~CPLResultXMLWrapper();

    /// Creates the file and opens the root element "HV.Analysis.Data", with `version` in the XML
    /// declaration's place of a document version. `bOverwrite` allows an existing file to be replaced. True
    /// on success.
    virtual bool createXMLFile(QString const& path, QString const& version, bool bOverwrite);
    /// Reads a file whole. True on success.
    bool loadXMLFile(QString const& path);

    /// Opens an element without, with one, or with several attributes.
    void writeOpenTag(QString const& tag);
    void writeOpenTag(QString const& tag, QString const& key, QString const& value);
    void writeOpenTag(QString const& tag, QString const& key, int value);
    void writeOpenTag(QString const& tag, QStringList& keys, QStringList& values);
    /// Closes the element; closing the root ends the file.
    void closeOpenTag(QString const& tag);

    /// Writes an empty element with one attribute.
    void writeAtomTag(QString const& tag, QString const& key, QString const& value);
    void writeAtomTag(QString const& tag, QString const& key, float value);
    void writeAtomTag(QString const& tag, QString const& key, double value);
    void writeAtomTag(QString const& tag, QString const& key, int value);

    /// Reads an attribute of an element directly under the root. False, and the value untouched, when it is
    /// not there.
    bool Read1stTagKeyValues(QString const& tag, QString const& key, QString& value);

    /// Selects the element tag2 under tag1 and reads all its attributes, or one. False when element or
    /// attribute is not there or does not convert.
    bool Read2ndTagKeyValues(QString const& tag1, QString const& tag2, QStringList& keys,
                             QStringList& values);
    bool Read2ndTagKeyValues(QString const& tag1, QString const& tag2, QString const& key, int& value);
    bool Read2ndTagKeyValues(QString const& tag1, QString const& tag2, QString const& key, QString& value);

    /// Reads an attribute of the index-th child (from 0) called `tag` of the selected element.
    bool ReadCurrentKeyValues(int index, QString const& tag, QString const& key, QString& value);
    bool ReadCurrentKeyValues(int index, QString const& tag, QString const& key, float& value);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
