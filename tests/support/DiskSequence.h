#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QtEndian>

#include <functional>

/// Image sequences on disk, as small as can be.
namespace disk_sequence {

inline bool put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

/// A TIFF file of one picture with 16 bits a pixel.
inline QByteArray tiff(int width, int height, const std::function<int(int x, int y)>& value)
{
    QByteArray bytes("II*\0\x08\0\0\0", 8);
    const auto put16 = [&bytes](int number) {
        bytes += char(number & 255);
        bytes += char(number >> 8 & 255);
    };
    const auto put32 = [&put16](int number) {
        put16(number & 65535);
        put16(number >> 16 & 65535);
    };
    const int entries[][2] = {{256, width}, {257, height}, {258, 16},
                              {259, 1},     {262, 1},      {273, 8 + 2 + 9 * 12 + 4},
                              {277, 1},     {278, height}, {279, width * height * 2}};
    put16(9);
    for (const auto& entry : entries) {
        put16(entry[0]);
        put16(4);
        put32(1);
        put32(entry[1]);
    }
    put32(0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            put16(value(x, y));
    }
    return bytes;
}

/// A click with a photograph (a grey ramp along x) and a luminescent image (a bright spot in its middle).
inline bool makeClick(const QString& folder, const QString& number, int side = 32)
{
    const auto ramp = [side](int x, int) { return x * 4000 / side; };
    const auto spot = [side](int x, int y) {
        const int dx = x - side / 2;
        const int dy = y - side / 2;
        return qMax(0, 60000 - (dx * dx + dy * dy) * 400000 / (side * side));
    };
    return QDir().mkpath(folder) && put(folder + "/photograph.tif", tiff(side, side, ramp)) &&
           put(folder + "/luminescent.tif", tiff(side, side, spot)) &&
           put(folder + "/ClickInfo.txt",
               "[Click]\nClick Number = " + number.toUtf8() +
                   "\n\n[photographic image]\nFile = photograph.tif\nField of View = 12.5\n"
                   "\n[luminescent image]\nFile = luminescent.tif\nField of View = 12.5\n"
                   "Binning Factor = 4\n");
}

/// A sequence with clicks, named by their folders, and two files in "CT Data". Gives the path of its
/// "SequenceInfo.txt".
inline QString make(const QString& folder, const QString& type, const QStringList& clicks)
{
    QByteArray info =
        "# made by a test\n[Sequence]\nFormat Version = 1\nSequence ID = " + QDir(folder).dirName().toUtf8() +
        "\nSequence Type = " + type.toUtf8() + "\n";
    info +=
        "\n[CT Acquisition Parameters]\nReconstructed Volume Min = -0.5\nReconstructed Volume Max = 1.5\n";
    if (!clicks.isEmpty()) info += "\n[Clicks]\n";
    int number = 0;
    for (const QString& click : clicks) {
        info += "Click " + QByteArray::number(++number) + " = " + click.toUtf8() + "\n";
        if (!makeClick(folder + '/' + click, click)) return {};
    }
    const QString file = folder + "/SequenceInfo.txt";
    const bool isMade = QDir().mkpath(folder + "/CT Data") && put(folder + "/CT Data/b.dcm", "b") &&
                        put(folder + "/CT Data/a.dcm", "a") && put(file, info);
    return isMade ? file : QString();
}

}  // namespace disk_sequence
