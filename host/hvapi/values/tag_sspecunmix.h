#pragma once

#include <QMetaType>

/// State of the host's spectral unmixing. Opaque.
struct tag_sspecunmix;

// A pointer to it can be an argument of a signal.
Q_DECLARE_OPAQUE_POINTER(tag_sspecunmix*)
Q_DECLARE_METATYPE(tag_sspecunmix*)
