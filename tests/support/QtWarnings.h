#pragma once

#include <QString>

namespace viz_test {

/// While one lives, Qt warnings that contain `text` are expected and do not fail the test.
class ExpectQtWarning
{
public:
    explicit ExpectQtWarning(const QString& text);
    ~ExpectQtWarning();
    ExpectQtWarning(const ExpectQtWarning&) = delete;
    ExpectQtWarning& operator=(const ExpectQtWarning&) = delete;

    /// How many warnings with that text have come.
    int count() const;

private:
    QString m_text;
};

/// Turns every Qt warning that nobody expects into a failure of the running test.
void installQtWarningGuard();

}  // namespace viz_test
