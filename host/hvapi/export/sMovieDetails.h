#pragma once

#include <QtCore/qglobal.h>

/// What a movie writer needs to know beforehand.
struct sMovieDetails
{
    qint32 m_nDurationMs = 0;     ///< length in milliseconds
    qint32 m_nScaledSeconds = 0;  ///< length in seconds times 1000 / 15
    qint32 m_nWidth = 0;          ///< pixels
    qint32 m_nHeight = 0;         ///< pixels
    qint32 m_nFramesPerSecond = 25;
};
