#pragma once

#include "hvparser/hvparser_global.h"
#include "hvutils/tag_estatus.h"

#include <QString>
#include <QStringList>
#include <memory>

// A section of a keyed text file: keys with values, and keys with further keys below them. Names are compared
// ignoring case. The operations give 0 on success; output is written on success only.
class HVPARSER_EXPORT CPLSection
{
public:
    struct Private;

    // Without keys.
    explicit CPLSection(QString const& name);
    // For the host.
    explicit CPLSection(std::unique_ptr<Private> data);
    ~CPLSection();

    // Value of a key. Fails when the key is absent or its value is no number.
    tag_estatus getValue(QString key, float* value) const;
    tag_estatus getValue(QString key, double* value) const;
    tag_estatus getValue(QString key, QString* value) const;

    // Replaces the value of a key that exists.
    tag_estatus setValue(QString key, QString value);

    // Adds a key, or replaces its value.
    tag_estatus addKeyValue(QString key, QString value);

    // The section's own name.
    tag_estatus getSectionKey(QString* name) const;

    bool isKeyPresent(QString key) const;

    // The keys below `subkey` of `key`.
    tag_estatus getKeylistFromKeyAndSubkey(QString key, QString subkey, QStringList* keys) const;

private:
    Q_DISABLE_COPY(CPLSection)
    std::unique_ptr<Private> d;
};
