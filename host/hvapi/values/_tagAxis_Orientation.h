#pragma once

#include <QtCore/qglobal.h>

/// Direction of each axis of a volume: +1 as stored, -1 mirrored.
struct _tagAxis_Orientation  // NOLINT(bugprone-reserved-identifier): the contract fixes the name
{
    qint32 x = 1;
    qint32 y = 1;
    qint32 z = 1;
};
