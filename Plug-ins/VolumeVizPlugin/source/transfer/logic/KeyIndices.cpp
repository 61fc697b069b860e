#include "transfer/logic/KeyIndices.h"

#include <cmath>
#include <cstdlib>

namespace {

// Cosines above which two entries count as one hue, in the first and in the second pass.
constexpr float sameHue = 0.971F;
constexpr float similarHue = 0.86F;
constexpr float closeHue = 0.97F;

// Sums of channel differences, of 765, below which neighbours are merged or a step is faint.
constexpr int closeColors = 83;
constexpr int closeColorsOfOneRed = 54;
constexpr int faintStep = 20;

struct Color
{
    int red;
    int green;
    int blue;

    bool operator==(const Color& other) const
    {
        return red == other.red && green == other.green && blue == other.blue;
    }

    int brightness() const { return red + green + blue; }
};

int dot(const Color& a, const Color& b)
{
    return a.red * b.red + a.green * b.green + a.blue * b.blue;
}

float length(const Color& a)
{
    return std::sqrt(static_cast<float>(dot(a, a)));
}

class Table
{
public:
    Table(const unsigned char* bytes, int entries)
        : m_bytes(bytes)
        , m_entries(entries)
    {}

    int last() const { return m_entries - 1; }

    Color operator[](int index) const
    {
        const unsigned char* entry = m_bytes + 4 * static_cast<std::ptrdiff_t>(index);
        return {entry[0], entry[1], entry[2]};
    }

private:
    const unsigned char* m_bytes;
    int m_entries;
};

// The first entry behind `from` at which the hue changes, a run of equal entries has ended, or the table
// ends. `lastEqual` is the last of the run's entries, or `from` when there is no run.
int endOfHue(const Table& table, int from, int& lastEqual)
{
    const Color first = table[from];
    int at = from;
    lastEqual = from;
    float cosine = 0.0F;
    do {
        ++at;
        const Color color = table[at];
        const int product = dot(first, color);
        cosine = product != 0 ? static_cast<float>(product) / (length(first) * length(color)) : 0.0F;
        const bool rounded = static_cast<int>(cosine + 0.5F) == 1;
        const bool repeats = rounded && color == table[at - 1];
        if (repeats)
            lastEqual = at;
        else if (lastEqual > from)
            break;
    } while (cosine > sameHue && at < table.last());
    return at;
}

QVector<int> endsOfHues(const Table& table)
{
    QVector<int> keys = {0};
    int from = 1;
    while (from < table.last()) {
        int lastEqual = from;
        const int end = endOfHue(table, from, lastEqual);
        if (lastEqual > from) {
            keys.removeLast();
            keys.append(keys.isEmpty() ? 0 : (lastEqual + from) / 2);
        } else {
            keys.append(end);
        }
        from = end;
    }
    return keys;
}

bool lookAlike(const Color& a, const Color& b, float cosine, bool isFirst)
{
    const int red = std::abs(a.red - b.red);
    const int rest = std::abs(a.green - b.green) + std::abs(a.blue - b.blue);
    return (!isFirst && cosine > closeHue && red + rest < closeColors) ||
           (red == 0 && rest < closeColorsOfOneRed);
}

// One key against those behind it: similar ones go, up to the first that differs or that stands for it
// better.
class Merge
{
public:
    Merge(const Table& table, const QVector<int>& keys)
        : m_table(table)
        , m_keys(keys)
    {}

    QVector<int> run()
    {
        m_merged.append(m_keys[m_next++]);
        while (!atEnd())
            mergeFrom(m_merged.size() - 1);
        if (m_merged.last() < m_table.last()) m_merged.append(m_table.last());
        return m_merged;
    }

private:
    bool atEnd() const { return m_next >= m_keys.size(); }

    // m_merged ends with the key that is being compared; what lies behind it waits in m_keys from m_next on.
    void mergeFrom(int key)
    {
        const Color color = m_table[m_merged[key]];
        float cosine = 0.0F;
        do {
            m_merged.append(m_keys[m_next++]);
            const Color other = m_table[m_merged.last()];
            const int product = dot(color, other);
            if (product == 0) continue;  // black says nothing of a hue: the last cosine holds
            cosine = static_cast<float>(product) / (length(color) * length(other));
            if (cosine <= similarHue) continue;
            const int index = m_merged.takeLast();
            if (lookAlike(color, other, cosine, key == 0)) {
                m_merged[key] = index;
                return;
            }
        } while (cosine > similarHue && !atEnd());
    }

    const Table& m_table;
    const QVector<int>& m_keys;
    QVector<int> m_merged;
    int m_next = 0;
};

QVector<int> withoutFaintSteps(const Table& table, const QVector<int>& keys)
{
    QVector<int> kept;
    for (int i = 0; i + 1 < keys.size(); ++i) {
        const int step = std::abs(table[keys[i]].brightness() - table[keys[i + 1]].brightness());
        if (step < 1 || step >= faintStep) kept.append(keys[i]);
    }
    kept.append(keys.last());
    return kept;
}

}  // namespace

QVector<int> keyIndices(const unsigned char* table, int entries)
{
    if (!table || entries < 1) return {};
    const Table colors(table, entries);
    const QVector<int> hues = endsOfHues(colors);
    return withoutFaintSteps(colors, Merge(colors, hues).run());
}
