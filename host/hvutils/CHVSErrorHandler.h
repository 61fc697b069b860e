#pragma once

#include "hvutils/hvutils_global.h"
#include "hvutils/tag_estatus.h"

#include <QString>

class QWidget;

// Error boxes for host status values.
class HVUTILS_EXPORT CHVSErrorHandler
{
public:
    CHVSErrorHandler() = delete;

    // Shows a modal error box with the host's text for the status. `detail`, when not empty, follows the text
    // in a paragraph of its own. A status without a text of its own gets a general one with its number; 0
    // shows nothing. GUI thread only.
    static void errorMessage(QWidget* parent, tag_estatus status, QString detail);
};
