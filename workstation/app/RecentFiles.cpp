#include "RecentFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace {

QString key()
{
    return QStringLiteral("recentVolumes");
}

}  // namespace

RecentFiles::RecentFiles(QSettings& settings)
    : m_settings(settings)
{}

QList<QStringList> RecentFiles::volumes() const
{
    QList<QStringList> found;
    const int count = qMin(m_settings.beginReadArray(key()), capacity);
    for (int i = 0; i < count; ++i) {
        m_settings.setArrayIndex(i);
        const QStringList files = m_settings.value(QStringLiteral("files")).toStringList();
        if (!files.isEmpty()) found << files;
    }
    m_settings.endArray();
    return found;
}

void RecentFiles::add(const QStringList& files)
{
    if (files.isEmpty()) return;
    QList<QStringList> list = volumes();
    list.removeAll(files);
    list.prepend(files);
    store(list.mid(0, capacity));
}

void RecentFiles::remove(const QStringList& files)
{
    QList<QStringList> list = volumes();
    list.removeAll(files);
    store(list);
}

void RecentFiles::clear()
{
    store({});
}

void RecentFiles::store(const QList<QStringList>& list)
{
    m_settings.remove(key());
    m_settings.beginWriteArray(key(), list.size());
    for (int i = 0; i < list.size(); ++i) {
        m_settings.setArrayIndex(i);
        m_settings.setValue(QStringLiteral("files"), list[i]);
    }
    m_settings.endArray();
}

QString RecentFiles::title(const QStringList& files)
{
    if (files.isEmpty()) return {};
    const QFileInfo first(files.first());
    if (files.size() == 1 && first.fileName() == QLatin1String("SequenceInfo.txt")) {
        const QFileInfo folder(first.absolutePath());
        return QStringLiteral("%1 (sequence)  -  %2")
            .arg(folder.fileName(), QDir::toNativeSeparators(folder.absolutePath()));
    }
    QString name = first.fileName();
    if (files.size() > 1) name += QStringLiteral(" and %1 more").arg(files.size() - 1);
    return QStringLiteral("%1  -  %2").arg(name, QDir::toNativeSeparators(first.absolutePath()));
}
