#include "LogText.h"

#include <QRegularExpression>

namespace hvdicom {

QString withoutQuotedValues(QString const& message,
                            std::function<bool(QString const&)> const& isAttributeName)
{
    // A quote opens a value only at the start of a word, so that "can't" opens none; a quote that never
    // closes reaches to the end. Names of persons carry carets.
    static QRegularExpression const value(
        QStringLiteral("(?<![A-Za-z0-9])(?<quote>['\"])(?<text>.*?)(?:\\k<quote>(?![A-Za-z0-9])|$)|(?<person>"
                       "\\S*\\^.*$)|"
                       "(?<label>\\bvalue(?: is)?[:=]\\s*)(?<rest>[^'\"\\s].*$)"),
        QRegularExpression::DotMatchesEverythingOption);
    QString result;
    int at = 0;
    auto matches = value.globalMatch(message);
    while (matches.hasNext()) {
        QRegularExpressionMatch const match = matches.next();
        result += message.midRef(at, match.capturedStart() - at);
        at = match.capturedEnd();
        QString const text = match.captured(QStringLiteral("text"));
        if (!text.isEmpty() && isAttributeName(text))
            result += match.captured();
        else
            result += match.captured(QStringLiteral("label")) + QStringLiteral("...");
    }
    return result + message.midRef(at);
}

}  // namespace hvdicom
