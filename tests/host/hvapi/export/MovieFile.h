#pragma once

#include <QImage>
#include <QList>
#include <QString>

/// A movie as another program sees it.
struct MovieFile
{
    bool isReadable = false;
    QString codec;
    double framesPerSecond = 0.0;
    double seconds = 0.0;
    QList<QImage> frames;

    static MovieFile read(const QString& path);
};
