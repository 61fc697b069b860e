#pragma once

#include <QByteArray>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>

namespace viz_test {

/// Damages a TIFF file in one to four places, as chance will have it: bytes, bits, numbers that are edges,
/// pieces in the wrong place, fields of the first directory, a missing end.
inline void damageTiff(QByteArray& bytes, std::mt19937& random)
{
    auto const place = [&](int from, int to) {
        return from + static_cast<int>(random() % static_cast<unsigned>(std::max(1, to - from)));
    };
    static constexpr std::uint32_t numbers[] = {
        0, 1, 2, 8, 0x7F, 0xFF, 0x8000, 0xFFFF, 0x10000, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
    int const hits = 1 + static_cast<int>(random() % 4);
    for (int i = 0; i < hits && bytes.size() > 16; ++i) {
        switch (random() % 6) {
        case 0:  // a byte anywhere
            bytes[place(0, bytes.size())] = static_cast<char>(random());
            break;
        case 1:  // a bit in the last part, where directories stand
            bytes.data()[place(bytes.size() * 3 / 4, bytes.size())] ^=
                static_cast<char>(1U << (random() % 8));
            break;
        case 2: {  // a number that is an edge
            std::uint32_t const number = numbers[random() % (sizeof numbers / sizeof *numbers)];
            std::memcpy(bytes.data() + place(bytes.size() / 2, bytes.size() - 4), &number,
                        random() % 2 ? 4 : 2);
            break;
        }
        case 3:  // the end is missing
            bytes.truncate(place(bytes.size() / 4, bytes.size()));
            break;
        case 4: {  // a piece stands somewhere else
            QByteArray const piece = bytes.mid(place(0, bytes.size()), place(1, 24));
            int const target = place(0, bytes.size() - piece.size());
            if (target >= 0) bytes.replace(target, piece.size(), piece);
            break;
        }
        default:  // a field of an entry of the first directory
        {
            std::uint32_t offset = 0;
            std::memcpy(&offset, bytes.constData() + 4, 4);
            int const from = static_cast<int>(
                std::min<std::uint32_t>(offset, static_cast<std::uint32_t>(bytes.size()) - 4));
            int const entry = from + 2 + 12 * static_cast<int>(random() % 16);
            int const field = entry + (random() % 2 ? 8 : random() % 2 ? 4 : 2);
            std::uint32_t const number = random() % 2 ? numbers[random() % (sizeof numbers / sizeof *numbers)]
                                                      : std::uint32_t(random() % 70000);
            if (field + 4 <= bytes.size()) std::memcpy(bytes.data() + field, &number, 4);
        }
        }
    }
}

}  // namespace viz_test
