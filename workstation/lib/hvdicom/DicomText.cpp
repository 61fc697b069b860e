#include "DicomText.h"

#include <QTextCodec>
#include <algorithm>
#include <iterator>

namespace hvdicom {

namespace {

struct CharacterSet
{
    char const* dicom;
    char const* codec;
};

constexpr CharacterSet characterSets[] = {
    {"100", "ISO-8859-1"}, {"101", "ISO-8859-2"}, {"109", "ISO-8859-3"}, {"110", "ISO-8859-4"},
    {"144", "ISO-8859-5"}, {"127", "ISO-8859-6"}, {"126", "ISO-8859-7"}, {"138", "ISO-8859-8"},
    {"148", "ISO-8859-9"}, {"13", "Shift_JIS"},   {"192", "UTF-8"},
};

QTextCodec* codecOf(QByteArray const& characterSet)
{
    if (characterSet == "GB18030" || characterSet == "GBK") return QTextCodec::codecForName("GB18030");
    // "ISO_IR 100", or "ISO 2022 IR 100" with code extensions.
    QByteArray const number = characterSet.mid(characterSet.lastIndexOf(' ') + 1);
    auto const* const known =
        std::find_if(std::begin(characterSets), std::end(characterSets),
                     [&number](CharacterSet const& set) { return number == set.dicom; });
    return known == std::end(characterSets) ? nullptr : QTextCodec::codecForName(known->codec);
}

}  // namespace

QString decodedText(QByteArray const& bytes, QByteArray const& characterSet)
{
    bool const isAscii =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    QTextCodec const* const codec = isAscii ? nullptr : codecOf(characterSet);
    return codec ? codec->toUnicode(bytes) : QString::fromLatin1(bytes);
}

}  // namespace hvdicom
