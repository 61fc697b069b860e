#pragma once

#include <QList>
#include <QStringList>

class QSettings;

/// The volumes and sequences that were opened last, newest first, each as the list of its files; a sequence
/// is its "SequenceInfo.txt". Kept in the settings.
class RecentFiles
{
public:
    static constexpr int capacity = 10;

    /// `settings` must outlive this object.
    explicit RecentFiles(QSettings& settings);

    QList<QStringList> volumes() const;
    /// Puts a volume first. One that is there already is moved, not doubled.
    void add(const QStringList& files);
    void remove(const QStringList& files);
    void clear();

    /// "scan.vox - /data/mouse" or "slice_001.tif and 119 more - /data/mouse"; a sequence is
    /// "mouse (sequence) - /data".
    static QString title(const QStringList& files);

private:
    void store(const QList<QStringList>& volumes);

    QSettings& m_settings;
};
