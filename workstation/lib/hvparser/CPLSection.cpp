#include "hvparser/CPLSection.h"

#include "lib/hvparser/KeyedFile.h"

#include <cmath>

CPLSection::CPLSection(QString const& name)
    : d(std::make_unique<Private>())
{
    d->text = hvparser::makeSection(name, d->newline);
}

CPLSection::CPLSection(std::unique_ptr<Private> data)
    : d(std::move(data))
{}

CPLSection::~CPLSection() = default;

// QString reads and writes numbers with a point, whatever the desktop's language. "nan" and "inf" are no
// measurements.
tag_estatus CPLSection::getValue(QString key, float* value) const
{
    auto const* line = hvparser::findKey(d->text, key);
    bool isNumber = false;
    float const number = line ? line->value.toFloat(&isNumber) : 0.0F;
    if (!isNumber || !std::isfinite(number)) return eStatusFailed;
    *value = number;
    return eStatusSuccess;
}

tag_estatus CPLSection::getValue(QString key, double* value) const
{
    auto const* line = hvparser::findKey(d->text, key);
    bool isNumber = false;
    double const number = line ? line->value.toDouble(&isNumber) : 0.0;
    if (!isNumber || !std::isfinite(number)) return eStatusFailed;
    *value = number;
    return eStatusSuccess;
}

tag_estatus CPLSection::getValue(QString key, QString* value) const
{
    auto const* line = hvparser::findKey(d->text, key);
    if (!line) return eStatusFailed;
    *value = line->value;
    return eStatusSuccess;
}

tag_estatus CPLSection::setValue(QString key, QString value)
{
    if (!isKeyPresent(key)) return eStatusFailed;
    return addKeyValue(key, value);
}

tag_estatus CPLSection::addKeyValue(QString key, QString value)
{
    return hvparser::setKey(d->text, key, value, d->newline) ? eStatusSuccess : eStatusFailed;
}

tag_estatus CPLSection::getSectionKey(QString* name) const
{
    *name = d->text.name;
    return eStatusSuccess;
}

bool CPLSection::isKeyPresent(QString key) const
{
    return hvparser::findKey(d->text, key) != nullptr;
}
