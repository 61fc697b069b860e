#include "lib/hvparser/KeyedFile.h"

#include "hvutils/CHVSLog.h"
#include "lib/hvutils/SafeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

void log(QString const& text, long severity)
{
    getLogObject()->log(text, QString(), 0, QString(), severity, false);
}

tag_estatus refuse(QString const& path, QString const& reason)
{
    log(QStringLiteral("'%1' cannot be read: %2.").arg(QDir::toNativeSeparators(path), reason),
        CHVSLog::eError);
    return eStatusFileNotReadable;
}

}  // namespace

KeyedFile::KeyedFile() = default;
KeyedFile::~KeyedFile() = default;

tag_estatus KeyedFile::load(QString const& path)
{
    QFileInfo const info(path);
    if (!info.exists()) return refuse(path, QStringLiteral("there is no such file"));
    // a pipe would keep the reader waiting for ever
    if (!info.isFile()) return refuse(path, QStringLiteral("it is no plain file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return refuse(path, file.errorString());
    QByteArray const bytes = file.read(hvparser::longestKeyedText + 1);
    if (file.error() != QFileDevice::NoError) return refuse(path, file.errorString());
    if (bytes.size() > hvparser::longestKeyedText)
        return refuse(path, QStringLiteral("it is longer than %1 MiB").arg(hvparser::longestKeyedText >> 20));
    take(hvparser::parseKeyedText(bytes));
    return eStatusSuccess;
}

void KeyedFile::take(hvparser::KeyedText text)
{
    for (auto const& complaint : text.complaints)
        log(QStringLiteral("Text of sections and keys, %1; the line is kept.").arg(complaint),
            CHVSLog::eWarning);
    m_newline = text.newline;
    m_head = std::move(text.sections.front());
    m_sections.clear();
    for (std::size_t i = 1; i < text.sections.size(); ++i) {
        auto data = std::make_unique<CPLSection::Private>();
        data->text = std::move(text.sections[i]);
        data->newline = m_newline;
        m_sections.push_back(std::make_unique<CPLSection>(std::move(data)));
    }
}

tag_estatus KeyedFile::save(QString const& path) const
{
    QString reason;
    if (SafeFile::write(path, bytes(), reason)) return eStatusSuccess;
    log(QStringLiteral("'%1' cannot be written: %2.").arg(QDir::toNativeSeparators(path), reason),
        CHVSLog::eError);
    return eStatusFileNotWritable;
}

QByteArray KeyedFile::bytes() const
{
    QByteArray bytes;
    hvparser::writeSection(m_head, m_newline, bytes);
    for (auto const& section : m_sections)
        hvparser::writeSection(CPLSection::Private::of(*section).text, m_newline, bytes);
    return bytes;
}

CPLSection* KeyedFile::find(QString const& name) const
{
    for (auto const& section : m_sections) {
        if (CPLSection::Private::of(*section).text.name.compare(name, Qt::CaseInsensitive) == 0)
            return section.get();
    }
    return nullptr;
}

CPLSection* KeyedFile::findOrAdd(QString const& name)
{
    if (auto* section = find(name)) return section;
    auto data = std::make_unique<CPLSection::Private>();
    data->text = hvparser::makeSection(name, m_newline);
    data->newline = m_newline;
    if (data->text.head.isEmpty()) return nullptr;
    // a blank line before it, for the reader's eyes
    if (!m_sections.empty() || !m_head.lines.empty()) {
        auto& before = m_sections.empty() ? m_head : CPLSection::Private::of(*m_sections.back()).text;
        if (!before.lines.empty() && !before.lines.back().raw.endsWith('\n'))
            before.lines.back().raw += m_newline;
        before.lines.push_back({m_newline, {}, {}});
    }
    m_sections.push_back(std::make_unique<CPLSection>(std::move(data)));
    return m_sections.back().get();
}

bool KeyedFile::remove(QString const& name)
{
    bool isFound = false;
    for (auto it = m_sections.begin(); it != m_sections.end();) {
        bool const isIt = CPLSection::Private::of(**it).text.name.compare(name, Qt::CaseInsensitive) == 0;
        it = isIt ? m_sections.erase(it) : it + 1;
        isFound = isFound || isIt;
    }
    return isFound;
}

QList<CPLSection*> KeyedFile::sections() const
{
    QList<CPLSection*> list;
    for (auto const& section : m_sections)
        list << section.get();
    return list;
}
