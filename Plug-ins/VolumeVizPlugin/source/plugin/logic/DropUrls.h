#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

/// Path behind one dropped URL, given as its percent-encoded text; the null string for anything but a file.
/// "file:///data/a.raw" gives "/data/a.raw", "file:///C:/a.raw" gives "C:/a.raw", and a file of a server,
/// "file://server/share/a.raw", keeps its two slashes: "//server/share/a.raw".
QString pathOfDroppedUrl(const QString& encodedUrl);

/// Paths of the files among `urls`, in their order.
QStringList pathsOfDroppedUrls(const QList<QUrl>& urls);
