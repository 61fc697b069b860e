#pragma once

#include <QString>

/// What is known of the window of data that is active.
struct ActiveWindowFacts
{
    bool isThere = false;
    bool isSequenceWindow = false;  ///< else the window of one image
    bool is3DSceneOnly = false;     ///< a sequence window that holds a 3D scene and nothing else
    bool hasSequence = false;       ///< its own, or that of the image
    bool isSlaSequence = false;
    bool isCtSequence = false;
};

/// True when a volume is loaded into the sequence of the window; else a new 3D scene has to be made for it.
bool isLoadTarget(const ActiveWindowFacts& window);

/// What the user is told of where a load will go.
struct StatusFacts
{
    bool loadsInNewWindow = false;  ///< the user asked for it
    bool hasFiles = false;
    bool isCtData = false;  ///< of a sequence, which is opened as a whole
    QString targetId;       ///< of the sequence that the volume goes into; empty for none
};

QString statusMessage(const StatusFacts& facts);
