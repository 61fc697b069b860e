#pragma once

#include "hvimage/hvimage_global.h"

#include <QString>

// What the library has to say of a file, for whoever keeps the log: the log stands above this library.
enum class ImageMessage
{
    Information,  // a file is odd, but was read
    Warning       // a picture was not read, and why
};

using ImageMessageSink = void (*)(ImageMessage kind, QString const& text);

// Sends messages to `sink` from now on, from any thread; null, as at the start, drops them.
HVIMAGE_EXPORT void setImageMessageSink(ImageMessageSink sink);

void sendImageMessage(ImageMessage kind, QString const& text);
