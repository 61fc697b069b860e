#include "CVolBrowserTree.h"

#include <QHeaderView>

CVolBrowserTree::CVolBrowserTree(QWidget* parent)
    : QTreeView(parent)
{
    // Columns are fitted to their contents with every data set that arrives: by the rows in sight, since the
    // thousand rows that count otherwise take longer than the search for them.
    header()->setResizeContentsPrecision(0);
    setUniformRowHeights(true);
}

void CVolBrowserTree::keyPressEvent(QKeyEvent* event)
{
    QTreeView::keyPressEvent(event);
    emit onCurrentSelectionChanged(currentIndex());
}
