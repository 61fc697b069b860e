#pragma once

#include <QString>
#include <QStringList>

/// True when a file's name ends like one of the filters, each "*" and an ending, ignoring case. The ending is
/// taken as it is: "*tiff" passes "a.tiff" and "catiff". A filter without a leading "*" is a whole name.
bool passesNameFilters(const QString& name, const QStringList& filters);
