#include "hvutils/shortenFolderNameForDisplay.h"

#include <QString>

namespace {

constexpr int longestForDisplay = 60;

}  // namespace

void shortenFolderNameForDisplay(QString& path)
{
    if (path.size() <= longestForDisplay) return;
    QString const dots = QStringLiteral("...");
    QString const end = path.mid(path.lastIndexOf(QLatin1Char('/')));  // with its "/"; all of it without one
    int const room = longestForDisplay - dots.size() - end.size();
    if (room >= 0) {
        // Whole folders only; -1 + 1 leaves none.
        QString const beginning = path.left(room);
        path = beginning.left(beginning.lastIndexOf(QLatin1Char('/')) + 1) + dots + end;
        return;
    }
    int kept = longestForDisplay - dots.size();
    if (path.at(path.size() - kept).isLowSurrogate()) --kept;
    path = dots + path.right(kept);
}
