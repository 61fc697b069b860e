#pragma once

#include <QMetaType>

/// What the host keeps of a file that it downloaded. Opaque: callers pass a null pointer.
struct downloaded_save_data;

// A pointer to it can be an argument of a signal.
Q_DECLARE_OPAQUE_POINTER(downloaded_save_data*)
Q_DECLARE_METATYPE(downloaded_save_data*)
