#include "CVolBrowserTree.h"

CVolBrowserTree::CVolBrowserTree(QWidget* parent)
    : QTreeView(parent)
{}

void CVolBrowserTree::keyPressEvent(QKeyEvent* event)
{
    QTreeView::keyPressEvent(event);
    emit onCurrentSelectionChanged(currentIndex());
}
