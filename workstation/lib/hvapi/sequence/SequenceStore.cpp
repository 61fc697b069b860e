#include "lib/hvapi/sequence/SequenceStore.h"

#include "hvutils/CHVSLog.h"
#include "hvutils/deleteFolderTree.h"
#include "lib/hvapi/sequence/SequenceContents.h"
#include "lib/hvapi/sequence/SequenceData.h"
#include "lib/hvapi/sequence/SequenceReader.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvdicom/VolumeFolder.h"
#include "lib/hvparser/KeyedFile.h"
#include "lib/hvutils/SafeFile.h"

#include <QDir>
#include <QFileInfo>

namespace {

using namespace sequence_names;

void logError(QString const& text)
{
    getLogObject()->log(text, QString(), 0, QString(), CHVSLog::eError, false);
}

CHVSSequenceDataset* alreadyOpen(QString const& folder)
{
    QString const wanted = QFileInfo(folder).canonicalFilePath();
    for (auto* sequence : SequenceRegistry::instance().sequences()) {
        QString const path = sequence->getSequenceInfoPath();
        if (!path.isEmpty() && QFileInfo(path).canonicalFilePath() == wanted) return sequence;
    }
    return nullptr;
}

// Where a file lies inside the sequence's folder it is named from there, so that the folder can be moved.
QString nameFrom(QString const& folder, QString const& file)
{
    return file.startsWith(folder) ? file.mid(folder.size()) : file;
}

void writeVolume(KeyedFile& file, CHVSSequenceDataset::Private const& data, QString const& folder)
{
    if (!data.volumeChanged) return;
    file.remove(volumeSection);
    if (data.loadedVolumetricData.isEmpty()) return;
    auto* section = file.findOrAdd(volumeSection);
    int number = 0;
    for (auto const& name : data.loadedVolumetricData)
        section->addKeyValue(QStringLiteral("File %1").arg(++number), nameFrom(folder, name));
}

void writeFacts(KeyedFile& file, CHVSSequenceDataset::Private const& data)
{
    auto* section = file.findOrAdd(sequenceSection);
    if (!section->isKeyPresent(versionKey)) section->addKeyValue(versionKey, QStringLiteral("1"));
    if (!section->isKeyPresent(idKey)) section->addKeyValue(idKey, data.description.id);
    section->addKeyValue(typeKey, typeText(data.description.kind));
    section->addKeyValue(groupKey,
                         data.description.loadedAsGroup ? QStringLiteral("yes") : QStringLiteral("no"));
}

/// A folder that did not exist before, or an empty text.
QString makeFolder(QString const& parent, QString const& wish)
{
    QDir const place(parent);
    for (int n = 1; n < 10000; ++n) {
        QString const name = n == 1 ? wish : QStringLiteral("%1_%2").arg(wish).arg(n);
        if (place.mkdir(name)) return place.absoluteFilePath(name) + '/';
        if (!place.exists(name)) return {};
    }
    return {};
}

bool copyFiles(QString const& from, QString const& to, QString& reason)
{
    auto const files = QDir(from).entryInfoList(QDir::Files | QDir::Hidden);
    for (auto const& file : files) {
        if (!SafeFile::copy(file.absoluteFilePath(), to + file.fileName(), reason)) return false;
    }
    return true;
}

bool writeClick(CHVSDataset::Private const& click, QString const& to, QString& reason)
{
    if (!QDir().mkdir(to)) {
        reason = QStringLiteral("the folder of a click cannot be made");
        return false;
    }
    if (!click.folder.isEmpty()) return copyFiles(click.folder, to, reason);
    KeyedFile file;
    file.findOrAdd(clickSection)->addKeyValue(clickNumberKey, click.clickNumber);
    return SafeFile::write(to + clickFileName, file.bytes(), reason);
}

QString clickFolderName(CHVSDataset::Private const& click)
{
    if (!click.folder.isEmpty()) return QDir(click.folder).dirName();
    return SequenceRegistry::isValidId(click.clickNumber) ? click.clickNumber : QString();
}

bool writeWhole(CHVSSequenceDataset::Private& data, QString const& folder, QString& reason)
{
    if (!data.info) data.info = std::make_unique<CPLSequenceInfo>();
    KeyedFile& file = CPLSequenceInfo::Private::fileOf(*data.info);
    writeFacts(file, data);
    file.remove(clicksSection);
    if (!data.datasets.empty()) {
        auto* section = file.findOrAdd(clicksSection);
        int number = 0;
        for (auto const& dataset : data.datasets) {
            auto const& click = CHVSDataset::Private::of(*dataset);
            QString name = clickFolderName(click);
            ++number;
            if (name.isEmpty() || QFileInfo::exists(folder + name))
                name = QStringLiteral("Click %1").arg(number);
            if (!writeClick(click, folder + name + '/', reason)) return false;
            section->addKeyValue(QStringLiteral("Click %1").arg(number), name);
        }
    }
    if (data.description.kind == SequenceKind::Ct && !QDir(folder).mkdir(ctDataFolder)) {
        reason = QStringLiteral("the folder '%1' cannot be made").arg(ctDataFolder);
        return false;
    }
    writeVolume(file, data, folder);
    // last: a folder with this file is a whole sequence
    return SafeFile::write(folder + infoFileName, file.bytes(), reason);
}

void moveTo(CHVSSequenceDataset& sequence, QString const& folder)
{
    auto& data = CHVSSequenceDataset::Private::of(sequence);
    KeyedFile& file = CPLSequenceInfo::Private::fileOf(*data.info);
    int number = 0;
    for (auto const& dataset : data.datasets) {
        QString name;
        file.find(clicksSection)->getValue(QStringLiteral("Click %1").arg(++number), &name);
        ClickContents contents = readClick(folder + name + '/');
        contents.number = CHVSDataset::Private::of(*dataset).clickNumber;
        CHVSDataset::Private::of(*dataset).take(std::move(contents));
    }
    auto description = data.description;
    description.infoPath = folder;
    data.volumeChanged = false;
    SequenceRegistry::instance().change(&sequence, description);
}

}  // namespace

namespace SequenceStore {

QString infoFile(QString const& path)
{
    QFileInfo const info(path);
    if (info.isDir()) {
        QFileInfo const inside(QDir(path), infoFileName);
        return inside.isFile() ? inside.absoluteFilePath() : QString();
    }
    return info.isFile() && info.fileName() == infoFileName ? info.absoluteFilePath() : QString();
}

CHVSSequenceDataset* open(QString const& path, tag_estatus& status)
{
    status = eStatusFileNotReadable;
    QString const file = infoFile(path);
    if (file.isEmpty()) {
        logError(QStringLiteral("'%1' is no sequence: there is no '%2'.")
                     .arg(QDir::toNativeSeparators(path), infoFileName));
        return nullptr;
    }
    if (auto* sequence = alreadyOpen(QFileInfo(file).absolutePath())) {
        status = eStatusSuccess;
        return sequence;
    }
    SequenceDescription description;
    SequenceContents contents;
    if (!readSequence(file, description, contents)) return nullptr;
    auto* sequence = SequenceRegistry::instance().open(description, std::move(contents));
    status = sequence ? eStatusSuccess : eStatusFailed;
    return sequence;
}

tag_estatus save(CHVSSequenceDataset& sequence)
{
    auto& data = CHVSSequenceDataset::Private::of(sequence);
    QString const folder = data.description.infoPath;
    if (folder.isEmpty()) return eStatusFailed;
    if (!data.info) data.info = std::make_unique<CPLSequenceInfo>();
    KeyedFile& file = CPLSequenceInfo::Private::fileOf(*data.info);
    writeFacts(file, data);
    writeVolume(file, data, folder);
    tag_estatus const status = data.info->saveFile(folder + infoFileName);
    if (status == eStatusSuccess) data.volumeChanged = false;
    return status;
}

tag_estatus saveIn(CHVSSequenceDataset& sequence, QString const& parent)
{
    auto& data = CHVSSequenceDataset::Private::of(sequence);
    QString const folder = makeFolder(parent, data.description.id);
    if (folder.isEmpty()) {
        logError(QStringLiteral("No folder for the sequence can be made in '%1'.")
                     .arg(QDir::toNativeSeparators(parent)));
        return eStatusFileNotWritable;
    }
    QString reason;
    if (!writeWhole(data, folder, reason) ||
        CPLSequenceInfo::Private::load(*data.info, folder + infoFileName) != eStatusSuccess) {
        logError(QStringLiteral("The sequence cannot be saved in '%1': %2.")
                     .arg(QDir::toNativeSeparators(folder), reason));
        deleteFolderTree(QDir(folder));
        return eStatusFileNotWritable;
    }
    moveTo(sequence, folder);
    return eStatusSuccess;
}

QStringList volumeFiles(CHVSSequenceDataset& sequence)
{
    auto& data = CHVSSequenceDataset::Private::of(sequence);
    QString const folder = data.description.infoPath;
    if (folder.isEmpty() || !data.info) return {};
    QStringList files;
    if (auto* section = CPLSequenceInfo::Private::fileOf(*data.info).find(volumeSection)) {
        bool isWhole = true;
        for (auto const& line : CPLSection::Private::of(*section).text.lines) {
            if (line.key.isEmpty()) continue;
            files << QDir::cleanPath(QDir(folder).absoluteFilePath(line.value));
            isWhole = isWhole && QFileInfo(files.last()).isFile();
        }
        if (isWhole && !files.isEmpty()) return files;
    }
    files.clear();
    auto const folders = QDir(folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (auto const& entry : folders) {
        if (entry.fileName().compare(ctDataFolder, Qt::CaseInsensitive) != 0) continue;
        files = hvdicom::filesOfVolume(entry.absoluteFilePath());
        if (!files.isEmpty()) break;
    }
    return files;
}

void acceptVolume(CHVSSequenceDataset& sequence)
{
    CHVSSequenceDataset::Private::of(sequence).volumeChanged = false;
}

bool hasUnsavedChanges(CHVSSequenceDataset& sequence)
{
    auto const& data = CHVSSequenceDataset::Private::of(sequence);
    // a load that failed has cleared the list: what the file says is better than that
    bool const hasVolume = !data.loadedVolumetricData.isEmpty();
    if (data.description.infoPath.isEmpty()) return hasVolume || !data.datasets.empty();
    if (!data.volumeChanged || !hasVolume) return false;
    QStringList loaded = data.loadedVolumetricData;
    QStringList stored = volumeFiles(sequence);
    loaded.sort();
    stored.sort();
    return loaded != stored;
}

}  // namespace SequenceStore
