#include "lib/hvapi/sequence/SequenceReader.h"

#include "hvutils/CHVSLog.h"
#include "lib/hvapi/sequence/DatasetIndex.h"
#include "lib/hvapi/sequence/OpticalVoxelFile.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvparser/KeyedFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

using namespace sequence_names;

constexpr int mostClicks = 10000;
constexpr int mostComplaints = 8;

struct ImageName
{
    tag_eimagetype type;
    char const* section;
    char const* file;  // where the section names none
};

constexpr ImageName imageNames[] = {
    {IMAGETYPE_PHOTOGRAPH, "photographic image", "photograph.tif"},
    {IMAGETYPE_LUMINESCENT, "luminescent image", "luminescent.tif"},
    {IMAGETYPE_XRAY, "x-ray image", "x-ray.TIF"},
};

void log(QString const& text, long severity)
{
    getLogObject()->log(text, QString(), 0, QString(), severity, false);
}

QStringList clickFolders(KeyedFile const& file, QString const& folder)
{
    if (auto* section = file.find(clicksSection)) {
        QStringList names;
        for (auto const& line : CPLSection::Private::of(*section).text.lines) {
            if (!line.key.isEmpty() && !names.contains(line.value) && names.size() < mostClicks)
                names << line.value;
        }
        return names;
    }
    QStringList names;
    auto const folders = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (auto const& name : folders) {
        if (QFileInfo(folder + name + '/' + clickFileName).isFile()) names << name;
    }
    return names.mid(0, mostClicks);
}

QString freeNumber(QString const& wish, QSet<QString> const& taken)
{
    QString number = wish;
    for (int n = 2; datasetIndex().contains(number) || taken.contains(number); ++n)
        number = QStringLiteral("%1_%2").arg(wish).arg(n);
    return number;
}

void readClicks(KeyedFile const& file, QString const& folder, SequenceContents& contents)
{
    QSet<QString> taken;
    int missing = 0;
    auto const names = clickFolders(file, folder);
    for (auto const& name : names) {
        // a name leads to a folder of the sequence and nowhere else
        bool const isName = SequenceRegistry::isValidId(name);
        if (!isName || !QFileInfo(folder + name + '/' + clickFileName).isFile()) {
            if (++missing <= mostComplaints)
                log(QStringLiteral("Click '%1' has no '%2' and is left out.").arg(name, clickFileName),
                    CHVSLog::eWarning);
            continue;
        }
        ClickContents click = readClick(folder + name + '/');
        if (!click.info) continue;
        click.number = freeNumber(click.number, taken);
        taken.insert(click.number);
        contents.clicks.push_back(std::move(click));
    }
    if (missing > mostComplaints)
        log(QStringLiteral("%1 clicks are left out in all.").arg(missing), CHVSLog::eWarning);
}

}  // namespace

QString typeText(SequenceKind kind)
{
    switch (kind) {
    case SequenceKind::Sla:
        return QStringLiteral("SLA");
    case SequenceKind::Ct:
        return QStringLiteral("CT");
    case SequenceKind::Scene3D:
        return QStringLiteral("3D Scene");
    case SequenceKind::Other:
        break;
    }
    return QStringLiteral("Images");
}

SequenceKind kindOf(QString const& text)
{
    for (auto const kind : {SequenceKind::Sla, SequenceKind::Ct, SequenceKind::Scene3D}) {
        if (text.compare(typeText(kind), Qt::CaseInsensitive) == 0) return kind;
    }
    return SequenceKind::Other;
}

QString imageSection(tag_eimagetype type)
{
    for (auto const& name : imageNames) {
        if (name.type == type) return QString::fromLatin1(name.section);
    }
    return {};
}

bool readSequence(QString const& path, SequenceDescription& description, SequenceContents& contents)
{
    contents.info = std::make_unique<CPLSequenceInfo>();
    if (CPLSequenceInfo::Private::load(*contents.info, path) != eStatusSuccess) return false;
    KeyedFile& file = CPLSequenceInfo::Private::fileOf(*contents.info);
    auto* section = file.find(sequenceSection);
    if (!section) {
        log(QStringLiteral("'%1' describes no sequence: it has no section '%2'.")
                .arg(QDir::toNativeSeparators(path), sequenceSection),
            CHVSLog::eError);
        return false;
    }
    QString const folder = contents.info->getSequenceInfoPath();
    QString id;
    QString type;
    QString group;
    section->getValue(idKey, &id);
    section->getValue(typeKey, &type);
    section->getValue(groupKey, &group);
    description.kind = kindOf(type);
    if (description.kind == SequenceKind::Other &&
        type.compare(typeText(SequenceKind::Other), Qt::CaseInsensitive) != 0)
        log(QStringLiteral("'%1' is no type of a sequence; it is opened as a collection of images.")
                .arg(type),
            CHVSLog::eWarning);
    description.loadedAsGroup = group.compare(QLatin1String("yes"), Qt::CaseInsensitive) == 0;
    description.infoPath = folder;
    auto const& registry = SequenceRegistry::instance();
    for (auto const& wish : {id, QDir(folder).dirName(), QStringLiteral("Sequence")}) {
        description.id = SequenceRegistry::isValidId(wish) ? registry.freeId(wish) : QString();
        if (!description.id.isEmpty()) break;
    }
    readClicks(file, folder, contents);
    contents.optical = readOpticalVoxels(folder);
    for (auto const& click : contents.clicks)
        description.clickNumbers << click.number;
    return true;
}

ClickContents readClick(QString const& folder)
{
    ClickContents click;
    click.folder = folder;
    click.number = QDir(folder).dirName();
    auto info = std::make_unique<CPLClickInfo>();
    if (CPLClickInfo::Private::fileOf(*info).load(folder + clickFileName) != eStatusSuccess) return click;
    QString number;
    if (info->getValue(clickSection, clickNumberKey, &number) == eStatusSuccess && !number.isEmpty())
        click.number = number;
    for (auto const& name : imageNames) {
        QString const section = QString::fromLatin1(name.section);
        if (!info->isSectionPresent(section)) continue;
        QString file = QString::fromLatin1(name.file);
        info->getValue(section, fileKey, &file);
        if (SequenceRegistry::isValidId(file))
            click.images.insert(name.type, folder + file);
        else
            log(QStringLiteral("'%1' of click '%2' is no name of a file beside '%3'.")
                    .arg(file, click.number, clickFileName),
                CHVSLog::eWarning);
    }
    click.info = std::move(info);
    return click;
}
