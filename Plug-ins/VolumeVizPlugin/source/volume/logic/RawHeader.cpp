#include "volume/logic/RawHeader.h"

#include <QList>

#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>

namespace viz {

namespace {

const char sizeKey[] = "VolumeSize";
const char depthKey[] = "VoxelSize";
const char scaleKey[] = "VolumeScale";
const char fieldKey[] = "Field";
constexpr int longestKey = sizeof(scaleKey) - 1;

const char endMarker[] = "##\f";
const char continuation[] = "##";

// Far beyond any header line that a program writes; a longer one is read up to here.
constexpr int longestLine = 1 << 20;

bool startsWithKey(const QByteArray& line)
{
    return line.startsWith(sizeKey) || line.startsWith(depthKey) || line.startsWith(scaleKey) ||
           line.startsWith(fieldKey);
}

std::optional<int> integer(const QByteArray& token)
{
    const char* begin = token.constData();
    const char* const end = begin + token.size();
    if (token.size() > 1 && *begin == '+' && begin[1] != '-') ++begin;
    int value = 0;
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

float spacing(const QByteArray& token)
{
    bool good = false;
    const float value = token.toFloat(&good);
    return good && std::isfinite(value) ? value : 0.1F;
}

void readSize(const QList<QByteArray>& tokens, RawHeader& header)
{
    if (tokens.size() < 4) return;
    const auto columns = integer(tokens[1]);
    const auto rows = integer(tokens[2]);
    const auto frames = integer(tokens[3]);
    if (!columns || !rows || !frames) return;
    header.columns = *columns;
    header.rows = *rows;
    header.frames = *frames;
    header.sizeSeen = true;
}

void readDepth(const QList<QByteArray>& tokens, RawHeader& header)
{
    if (tokens.size() < 2) return;
    header.depth = tokens[1];
    header.depthSeen = true;
}

void readScale(const QList<QByteArray>& tokens, RawHeader& header)
{
    if (tokens.size() < 4) return;
    header.spacing = {spacing(tokens[1]), spacing(tokens[2]), spacing(tokens[3])};
}

void readField(const QList<QByteArray>& tokens, RawHeader& header)
{
    const int format = tokens.indexOf("Format");
    if (format < 0 || format + 1 >= tokens.size()) return;
    header.isSigned = tokens[format + 1] != "u";
    header.formatSeen = true;
}

void readLine(const QByteArray& line, RawHeader& header)
{
    if (!startsWithKey(line)) return;
    QList<QByteArray> tokens = line.split(' ');
    tokens.removeAll(QByteArray());
    if (line.startsWith(sizeKey)) readSize(tokens, header);
    if (line.startsWith(depthKey)) readDepth(tokens, header);
    if (line.startsWith(scaleKey)) readScale(tokens, header);
    if (line.startsWith(fieldKey)) readField(tokens, header);
}

}  // namespace

bool RawHeaderParser::feed(const char* bytes, std::size_t count)
{
    const char* const end = bytes + count;
    while (bytes != end && !m_done) {
        const void* found = std::memchr(bytes, '\n', static_cast<std::size_t>(end - bytes));
        const char* const stop = found != nullptr ? static_cast<const char*>(found) : end;
        append(bytes, static_cast<std::size_t>(stop - bytes));
        bytes = stop;
        if (found != nullptr) {
            m_carriageReturn = false;
            endLine(true);
            ++bytes;
        }
        if (m_afterMarker && !canBeContinuation()) conclude();
    }
    return m_done;
}

void RawHeaderParser::finish()
{
    if (m_done) return;
    if (m_afterMarker) return conclude();
    if (m_lineLength > 0) endLine(false);
    m_done = true;
}

void RawHeaderParser::append(const char* bytes, std::size_t count)
{
    if (count == 0) return;
    if (m_carriageReturn) addToLine("\r", 1);
    m_carriageReturn = bytes[count - 1] == '\r';
    addToLine(bytes, m_carriageReturn ? count - 1 : count);
}

void RawHeaderParser::addToLine(const char* bytes, std::size_t count)
{
    m_lineLength += static_cast<std::int64_t>(count);
    for (std::size_t i = 0; i < count && !m_skipping; ++i) {
        const bool blankAgain = bytes[i] == ' ' && (m_line.isEmpty() || m_line.endsWith(' '));
        if (!blankAgain) m_line.append(bytes[i]);
        m_skipping = m_line.size() >= longestLine || (m_line.size() == longestKey && !startsWithKey(m_line));
    }
}

void RawHeaderParser::endLine(bool withLineFeed)
{
    const auto isExactly = [&](const char* text) {
        return withLineFeed && m_line == text && m_lineLength == m_line.size();
    };
    if (m_afterMarker && !isExactly(continuation)) return conclude();

    m_afterMarker = isExactly(endMarker);
    readLine(m_line, m_header);
    // An empty line adds nothing to the size. Kept on purpose.
    if (m_lineLength > 0) m_delivered += m_lineLength + (withLineFeed ? 1 : 0);
    m_line.clear();
    m_lineLength = 0;
    m_skipping = false;
}

void RawHeaderParser::conclude()
{
    m_header.size = m_delivered;
    m_done = true;
}

bool RawHeaderParser::canBeContinuation() const
{
    return m_lineLength == m_line.size() && QByteArray(continuation).startsWith(m_line);
}

}  // namespace viz
