#pragma once

#include <QString>

/// Sequence ids are the same when they differ in case only.
inline bool sameId(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}
