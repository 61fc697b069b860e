#include "lib/hvutils/logic/MemoryLoad.h"

#include <QByteArray>
#include <QList>

namespace hvutils {

namespace {

// Kilobytes in the line "Name:   123 kB"; -1 without one.
qint64 kilobytes(QByteArray const& meminfo, QByteArray const& name)
{
    QList<QByteArray> const lines = meminfo.split('\n');
    for (QByteArray const& line : lines) {
        QList<QByteArray> const words = line.simplified().split(' ');
        if (words.size() < 2 || words[0] != name + ':') continue;
        bool isNumber = false;
        qint64 const value = words[1].toLongLong(&isNumber);
        return isNumber && value >= 0 ? value : -1;
    }
    return -1;
}

}  // namespace

bool memoryNearlyFull(QByteArray const& meminfo)
{
    qint64 const total = kilobytes(meminfo, "MemTotal");
    qint64 const available = kilobytes(meminfo, "MemAvailable");
    return total > 0 && available >= 0 && available < total / 10;
}

}  // namespace hvutils
