#include "plugin/logic/DropUrls.h"

namespace {

bool startsWithDrive(const QString& path)
{
    return path.size() >= 3 && path.at(0).isLetter() && path.at(1) == QLatin1Char(':') &&
           path.at(2) == QLatin1Char('/');
}

QString decoded(const QString& text)
{
    return QUrl::fromPercentEncoding(text.toUtf8());
}

}  // namespace

QString pathOfDroppedUrl(const QString& encodedUrl)
{
    const QString local = QStringLiteral("file:///");
    const QString server = QStringLiteral("file://");

    QString text = encodedUrl;
    if (const int at = text.indexOf(local); at >= 0) {
        const QString path = decoded(text.remove(at, local.size()));
        // The prefix takes the root's own slash with it.
        return path.startsWith(QLatin1Char('/')) || startsWithDrive(path) ? path : QLatin1Char('/') + path;
    }
    if (const int at = text.indexOf(server); at >= 0)
        return decoded(text.remove(at, QStringLiteral("file:").size()));
    return {};
}

QStringList pathsOfDroppedUrls(const QList<QUrl>& urls)
{
    QStringList paths;
    for (const QUrl& url : urls) {
        const QString path = pathOfDroppedUrl(url.toString(QUrl::FullyEncoded));
        if (!path.isNull()) paths.append(path);
    }
    return paths;
}
