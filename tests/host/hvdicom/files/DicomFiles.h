#pragma once

#include "support/dicom/DicomBuilder.h"
#include "testing/TestHostServices.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace viz_test {

// A folder for files, and the host's services that record the log, for one test.
class DicomFiles : public testing::Test
{
protected:
    QString path(char const* name = "a.dcm") const { return m_folder.filePath(QString::fromUtf8(name)); }

    QString write(DicomBuilder const& builder, char const* name = "a.dcm") const
    {
        EXPECT_TRUE(builder.write(path(name)));
        return path(name);
    }

    QString writeBytes(QByteArray const& bytes, char const* name = "a.dcm") const
    {
        // Some file systems wait for the disk when a file is cut and written anew.
        QFile::remove(path(name));
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path(name);
    }

    TestHostServices host;

private:
    QTemporaryDir m_folder;
};

inline QByteArray encoded(QString const& path)
{
    return QFile::encodeName(path);
}

}  // namespace viz_test
