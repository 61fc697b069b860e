#include "hvparser/CPLClickInfo.h"

#include "hvparser/CPLSection.h"
#include "lib/hvparser/KeyedFile.h"

CPLClickInfo::CPLClickInfo()
    : d(std::make_unique<Private>())
{}

CPLClickInfo::~CPLClickInfo() = default;

bool CPLClickInfo::isSectionPresent(QString section) const
{
    return d->file.find(section) != nullptr;
}

tag_estatus CPLClickInfo::removeSection(QString section)
{
    return d->file.remove(section) ? eStatusSuccess : eStatusFailed;
}

CPLSection* CPLClickInfo::operator[](QString section)
{
    return d->file.find(section);
}

tag_estatus CPLClickInfo::getValue(QString section, QString key, int* value) const
{
    QString text;
    bool isNumber = false;
    int const number = getValue(section, key, &text) == eStatusSuccess ? text.toInt(&isNumber) : 0;
    if (!isNumber) return eStatusFailed;
    *value = number;
    return eStatusSuccess;
}

tag_estatus CPLClickInfo::getValue(QString section, QString key, double* value) const
{
    auto const* found = d->file.find(section);
    return found ? found->getValue(key, value) : eStatusFailed;
}

tag_estatus CPLClickInfo::getValue(QString section, QString key, QString* value) const
{
    auto const* found = d->file.find(section);
    return found ? found->getValue(key, value) : eStatusFailed;
}
