#pragma once

#include <QStringList>

/// Brings the names of a folder's files into the order in which QDir lists them by itself: by their
/// characters, ignoring case. Frames are previewed, and cut to a range, in this order.
void sortByName(QStringList& names);
