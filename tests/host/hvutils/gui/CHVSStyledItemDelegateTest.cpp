#include "hvutils/CHVSStyledItemDelegate.h"

#include <QImage>
#include <QStandardItemModel>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

namespace {

class ItemDelegate : public testing::Test
{
protected:
    void SetUp() override
    {
        model.appendRow({new QStandardItem("a"), new QStandardItem("b")});
        model.appendRow({new QStandardItem("c"), new QStandardItem("d")});
        view.setModel(&model);
        view.setItemDelegate(&delegate);
        view.setRootIsDecorated(false);
        view.resize(300, 160);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    /// The colour near the right end of a cell, where there is no text.
    QColor ground(int row) const
    {
        QRect const cell = view.visualRect(model.index(row, 0));
        return picture().pixelColor(cell.right() - 6, cell.center().y());
    }

    /// The colour of a cell's right and lower edge.
    QColor rightEdge() const
    {
        QRect const cell = view.visualRect(model.index(0, 0));
        return picture().pixelColor(cell.right(), cell.center().y());
    }
    QColor lowerEdge() const
    {
        QRect const cell = view.visualRect(model.index(0, 0));
        return picture().pixelColor(cell.right() - 6, cell.bottom());
    }

    QImage picture() const { return view.viewport()->grab().toImage(); }

    QStandardItemModel model;
    CHVSStyledItemDelegate delegate;
    mutable QTreeView view;
};

TEST_F(ItemDelegate, RowsHaveTheViewsOwnGroundAndNoGridAtFirst)
{
    QColor const base = view.palette().color(QPalette::Base);
    EXPECT_EQ(ground(0), base);
    EXPECT_EQ(rightEdge(), base);
    EXPECT_EQ(lowerEdge(), base);
}

TEST_F(ItemDelegate, AGroundOfTheirOwnIsUnderRowsThatAreNotSelected)
{
    delegate.setCustomBackColor("#204060");
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.selectionModel()->select(model.index(1, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    EXPECT_EQ(ground(0), QColor("#204060"));
    EXPECT_NE(ground(1), QColor("#204060"));
    delegate.setCustomBackColor("no colour at all");
    EXPECT_EQ(ground(0), view.palette().color(QPalette::Base));
    delegate.setCustomBackColor("");
    EXPECT_EQ(ground(0), view.palette().color(QPalette::Base));
}

TEST_F(ItemDelegate, GridLinesAreDrawnOnDemand)
{
    delegate.setEnableGridLines(true);
    QRgb const line = view.palette().color(QPalette::Mid).rgb();
    EXPECT_EQ(rightEdge().rgb(), line);
    EXPECT_EQ(lowerEdge().rgb(), line);
    delegate.setEnableGridLines(false);
    EXPECT_NE(rightEdge().rgb(), line);
}

}  // namespace
