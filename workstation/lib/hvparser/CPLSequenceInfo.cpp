#include "hvparser/CPLSequenceInfo.h"

#include "hvparser/CPLSection.h"
#include "lib/hvparser/KeyedFile.h"

#include <QFileInfo>

namespace {

QString folderOf(QString const& path)
{
    QString const folder = QFileInfo(path).absolutePath();
    return folder.endsWith('/') ? folder : folder + '/';
}

}  // namespace

CPLSequenceInfo::CPLSequenceInfo()
    : d(std::make_unique<Private>())
{}

CPLSequenceInfo::~CPLSequenceInfo() = default;

bool CPLSequenceInfo::isSectionPresent(QString section) const
{
    return d->file.find(section) != nullptr;
}

CPLSection* CPLSequenceInfo::operator[](QString section)
{
    return d->file.find(section);
}

QString CPLSequenceInfo::getSequenceInfoPath() const
{
    return d->folder;
}

tag_estatus CPLSequenceInfo::saveFile(QString path)
{
    tag_estatus const status = d->file.save(path);
    if (status == eStatusSuccess) d->folder = folderOf(path);
    return status;
}

tag_estatus CPLSequenceInfo::Private::load(CPLSequenceInfo& info, QString const& path)
{
    tag_estatus const status = info.d->file.load(path);
    if (status == eStatusSuccess) info.d->folder = folderOf(path);
    return status;
}
