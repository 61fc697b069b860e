#include "plugin/CHVVolumeVizPalette.h"

#include "plugin/logic/DropUrls.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>

void CHVVolumeVizPalette::dragEnterEvent(QDragEnterEvent* event)
{
    // The notice of an unsupported system is a single tab, and takes nothing.
    if (event->mimeData()->hasUrls() && VolumeVizTabWidget->count() > 1)
        event->acceptProposedAction();
    else
        event->ignore();
}

void CHVVolumeVizPalette::dropEvent(QDropEvent* event)
{
    if (!event->mimeData()->hasUrls()) {
        event->ignore();
        return;
    }
    m_strFileList = pathsOfDroppedUrls(event->mimeData()->urls());
    m_bLoadFromFileList = true;
    m_bDroppedFiles = true;
    onClickLoadVolumeButton();
    m_bLoadFromFileList = false;
    m_bDroppedFiles = false;
    event->setDropAction(Qt::CopyAction);
    event->accept();
}
