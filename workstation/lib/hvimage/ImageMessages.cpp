#include "ImageMessages.h"

#include <atomic>

namespace {

std::atomic<ImageMessageSink> installedSink{nullptr};

}  // namespace

void setImageMessageSink(ImageMessageSink sink)
{
    installedSink = sink;
}

void sendImageMessage(ImageMessage kind, QString const& text)
{
    if (ImageMessageSink const sink = installedSink) sink(kind, text);
}
