#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

// RAW volume files of any shape, made for one test.
namespace viz_test {

/// A complete header: nothing is left to ask for.
inline QByteArray rawHeader(int columns, int rows, int frames, int bits, const char* format = "u",
                            const char* scale = nullptr)
{
    QByteArray header = "VolumeSize " + QByteArray::number(columns) + ' ' + QByteArray::number(rows) + ' ' +
                        QByteArray::number(frames) + "\nVoxelSize " + QByteArray::number(bits) + '\n';
    if (scale != nullptr) header += QByteArray("VolumeScale ") + scale + '\n';
    return header + "Field Density Format " + format + "\n##\f\n";
}

/// Samples as they stand in a file of this machine.
template <typename Sample>
QByteArray bytesOf(const std::vector<Sample>& samples)
{
    return QByteArray(reinterpret_cast<const char*>(samples.data()),
                      static_cast<int>(samples.size() * sizeof(Sample)));
}

/// A frame of 20 x 20 samples, the smallest that loads at full resolution: the given ones, then the first
/// again and again.
template <typename Sample>
QByteArray frame20(std::vector<Sample> samples)
{
    samples.resize(400, samples.front());
    return bytesOf(samples);
}

/// A temporary folder and the files in it.
class RawFolder
{
public:
    RawFolder() { EXPECT_TRUE(m_folder.isValid()); }

    QString path(const QString& name) const { return m_folder.filePath(name); }
    QByteArray encoded(const QString& name) const { return QFile::encodeName(path(name)); }

    /// @return the file's path as a reader takes it
    QByteArray write(const QString& name, const QByteArray& contents) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(contents), contents.size());
        return encoded(name);
    }

private:
    QTemporaryDir m_folder;
};

}  // namespace viz_test
