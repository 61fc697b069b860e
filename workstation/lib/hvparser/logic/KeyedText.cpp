#include "lib/hvparser/logic/KeyedText.h"

#include <algorithm>

namespace hvparser {

namespace {

constexpr int mostComplaints = 8;

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
           c.category() == QChar::Separator_Paragraph;
}

bool hasControl(QString const& text)
{
    return std::any_of(text.begin(), text.end(), isControl);
}

QByteArray lineEnd(QByteArray const& raw)
{
    if (raw.endsWith("\r\n")) return "\r\n";
    return raw.endsWith('\n') ? QByteArray("\n") : QByteArray();
}

bool isComment(QString const& line)
{
    return line.isEmpty() || line.startsWith('#') || line.startsWith(';');
}

// Lines without a key are kept in one piece, so that a file of line breaks needs no more memory than itself.
void appendWithoutKey(KeyedSection& section, QByteArray const& raw)
{
    if (!section.lines.empty() && section.lines.back().key.isEmpty())
        section.lines.back().raw += raw;
    else
        section.lines.push_back({raw, {}, {}});
}

void complain(KeyedText& text, int line, QString const& what)
{
    if (text.complaints.size() < mostComplaints)
        text.complaints << QStringLiteral("line %1: %2").arg(line).arg(what);
}

void takeLine(KeyedText& text, QByteArray const& raw, int number)
{
    QByteArray bare = raw;
    if (number == 1 && bare.startsWith("\xEF\xBB\xBF")) bare.remove(0, 3);
    QString const line = QString::fromUtf8(bare).trimmed();
    if (line.startsWith('[') && line.endsWith(']') && line.size() > 2) {
        text.sections.push_back({raw, line.mid(1, line.size() - 2).trimmed(), {}});
        return;
    }
    auto& section = text.sections.back();
    int const equals = line.indexOf('=');
    if (isComment(line) || equals <= 0 || line.startsWith('[')) {
        if (!isComment(line)) complain(text, number, QStringLiteral("neither a section nor a key"));
        appendWithoutKey(section, raw);
        return;
    }
    if (section.head.isEmpty()) complain(text, number, QStringLiteral("a key outside of every section"));
    section.lines.push_back({raw, line.left(equals).trimmed(), decodeValue(line.mid(equals + 1).trimmed())});
}

bool isUsableName(QString const& name)
{
    return !name.isEmpty() && name.trimmed() == name && !hasControl(name);
}

bool isUsableKey(QString const& key)
{
    return isUsableName(key) && !key.contains('=') && !isComment(key) && !key.startsWith('[');
}

QByteArray keyLine(QString const& key, QString const& value, QByteArray const& newline)
{
    return (key + QStringLiteral(" = ") + encodeValue(value)).toUtf8() + newline;
}

// A new line may follow the last line of a file, which need not have an end.
void closeLastLine(KeyedSection& section, QByteArray const& newline)
{
    QByteArray& last = section.lines.empty() ? section.head : section.lines.back().raw;
    if (!last.isEmpty() && lineEnd(last).isEmpty()) last += newline;
}

}  // namespace

KeyedText parseKeyedText(QByteArray const& bytes)
{
    KeyedText text;
    text.sections.emplace_back();
    int number = 0;
    for (int start = 0; start < bytes.size();) {
        int const found = bytes.indexOf('\n', start);
        int const end = found < 0 ? bytes.size() : found + 1;
        QByteArray const raw = bytes.mid(start, end - start);
        if (++number == 1 && !lineEnd(raw).isEmpty()) text.newline = lineEnd(raw);
        takeLine(text, raw, number);
        start = end;
    }
    return text;
}

void writeSection(KeyedSection const& section, QByteArray const& newline, QByteArray& bytes)
{
    if (!section.head.isEmpty() && !bytes.isEmpty() && !bytes.endsWith('\n')) bytes += newline;
    bytes += section.head;
    for (auto const& line : section.lines) {
        if (!bytes.isEmpty() && !bytes.endsWith('\n')) bytes += newline;
        bytes += line.raw;
    }
}

QByteArray writeKeyedText(KeyedText const& text)
{
    QByteArray bytes;
    for (auto const& section : text.sections)
        writeSection(section, text.newline, bytes);
    return bytes;
}

KeyedSection makeSection(QString const& name, QByteArray const& newline)
{
    if (!isUsableName(name)) return {};
    return {(QStringLiteral("[") + name + QStringLiteral("]")).toUtf8() + newline, name, {}};
}

KeyedLine const* findKey(KeyedSection const& section, QString const& key)
{
    if (key.isEmpty()) return nullptr;
    for (auto const& line : section.lines) {
        if (line.key.compare(key, Qt::CaseInsensitive) == 0) return &line;
    }
    return nullptr;
}

bool setKey(KeyedSection& section, QString const& key, QString const& value, QByteArray const& newline)
{
    if (!isUsableKey(key)) return false;
    for (auto& line : section.lines) {
        if (line.key.compare(key, Qt::CaseInsensitive) != 0) continue;
        if (line.value != value) {
            QByteArray const end = lineEnd(line.raw);
            line = {keyLine(line.key, value, end), line.key, value};
        }
        return true;
    }
    // behind the last key, before the blank lines that set the next section off
    auto const lastKey = std::find_if(section.lines.rbegin(), section.lines.rend(),
                                      [](KeyedLine const& line) { return !line.key.isEmpty(); });
    KeyedLine line{keyLine(key, value, newline), key, value};
    if (lastKey == section.lines.rend() && section.lines.size() == 1 &&
        section.lines.front().raw.trimmed().isEmpty()) {
        section.lines.insert(section.lines.begin(), std::move(line));
    } else if (lastKey == section.lines.rend()) {
        closeLastLine(section, newline);
        section.lines.push_back(std::move(line));
    } else {
        if (lineEnd(lastKey->raw).isEmpty()) lastKey->raw += newline;
        section.lines.insert(lastKey.base(), std::move(line));
    }
    return true;
}

bool removeKey(KeyedSection& section, QString const& key)
{
    auto const isIt = [&key](KeyedLine const& line) {
        return !line.key.isEmpty() && line.key.compare(key, Qt::CaseInsensitive) == 0;
    };
    auto const first = std::remove_if(section.lines.begin(), section.lines.end(), isIt);
    bool const isFound = first != section.lines.end();
    section.lines.erase(first, section.lines.end());
    return isFound;
}

QString encodeValue(QString const& value)
{
    if (value.trimmed() == value && !hasControl(value) && !value.startsWith('"')) return value;
    QString text = QStringLiteral("\"");
    for (QChar const c : value) {
        switch (c.unicode()) {
        case '\n':
            text += QStringLiteral("\\n");
            break;
        case '\r':
            text += QStringLiteral("\\r");
            break;
        case '\t':
            text += QStringLiteral("\\t");
            break;
        case '"':
        case '\\':
            text += QChar('\\');
            text += c;
            break;
        default:
            text += c;
        }
    }
    return text + QChar('"');
}

QString decodeValue(QString const& text)
{
    if (text.size() < 2 || !text.startsWith('"') || !text.endsWith('"')) return text;
    QString value;
    for (int i = 1; i < text.size() - 1; ++i) {
        QChar c = text[i];
        if (c == '\\' && i + 1 < text.size() - 1) {
            c = text[++i];
            if (c == 'n') c = '\n';
            if (c == 'r') c = '\r';
            if (c == 't') c = '\t';
        }
        value += c;
    }
    return value;
}

}  // namespace hvparser
