#include "browse/CVolBrowseListItemModel.h"
#include "browse/CVolBrowseTreeItem.h"
#include "browse/CVolBrowserInfo.h"
#include "browse/CVolBrowserTree.h"

#include <QHeaderView>
#include <QIcon>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

int living = 0;

class CountedInfo : public CVolBrowserInfo
{
public:
    CountedInfo() { ++living; }
    ~CountedInfo() override { --living; }
    CountedInfo(const CountedInfo&) = delete;
    CountedInfo& operator=(const CountedInfo&) = delete;
};

std::unique_ptr<CVolBrowserInfo> scan(const QString& name, const QString& slices)
{
    auto info = std::make_unique<CountedInfo>();
    info->m_name = name;
    info->m_parentFolder = "/data";
    info->m_slices = slices;
    info->m_dimension = "512 x 256";
    info->m_modality = "CT";
    info->m_pixelSpacing = "0.1\\0.2";
    info->m_sliceSpacing = "0.5";
    info->m_dataType = "12-bit";
    info->m_type = "DICOM";
    return info;
}

class DataSetModel : public testing::Test
{
protected:
    DataSetModel() { living = 0; }

    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < model.rowCount(); ++row)
            names << model.item(row)->text();
        return names;
    }

    CVolBrowseListItemModel model;
};

}  // namespace

TEST_F(DataSetModel, aRowHasItsNineColumns)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    std::unique_ptr<CVolBrowserInfo> info = scan("mouse", "40");
    CVolBrowserInfo* const shown = info.get();
    const QModelIndex index = model.appendDataSet(std::move(info), QIcon(pixmap));
    EXPECT_EQ(index, model.index(0, 0));
    ASSERT_EQ(model.columnCount(), 9);
    const char* const headers[] = {"Name",          "Folder Path",   "Slices",    "Dimension", "Modality",
                                   "Pixel Spacing", "Slice Spacing", "Data Type", "Type"};
    const char* const texts[] = {"mouse",    "/data", "40",     "512 x 256", "CT",
                                 "0.1\\0.2", "0.5",   "12-bit", "DICOM"};
    for (int column = 0; column < 9; ++column) {
        EXPECT_EQ(model.headerData(column, Qt::Horizontal).toString(), headers[column]);
        EXPECT_EQ(model.item(0, column)->text(), texts[column]);
        EXPECT_FALSE(model.item(0, column)->isEditable());
        EXPECT_EQ(model.dataSet(model.index(0, column)), shown);
        EXPECT_EQ(model.item(0, column)->icon().isNull(), column != 0);
    }
    EXPECT_EQ(model.item(0, 2)->data(Qt::DisplayRole).type(), QVariant::Int);
}

TEST_F(DataSetModel, slicesAreSortedByNumber)
{
    for (const char* const slices : {"10", "9", "100"})
        model.appendDataSet(scan(slices, slices), QIcon());
    model.sort(2);
    EXPECT_EQ(names(), (QStringList{"9", "10", "100"}));
    model.sort(2, Qt::DescendingOrder);
    EXPECT_EQ(names(), (QStringList{"100", "10", "9"}));
}

TEST_F(DataSetModel, textsAreSortedAsTexts)
{
    for (const char* const name : {"b", "a10", "a9"})
        model.appendDataSet(scan(name, "1"), QIcon());
    model.sort(0);
    EXPECT_EQ(names(), (QStringList{"a10", "a9", "b"}));
}

TEST_F(DataSetModel, sortedRowsKeepTheirDataSets)
{
    model.appendDataSet(scan("b", "1"), QIcon());
    model.appendDataSet(scan("a", "2"), QIcon());
    model.sort(0);
    EXPECT_EQ(model.dataSet(model.index(0, 0))->m_name, "a");
    EXPECT_EQ(model.dataSet(model.index(0, 8))->m_name, "a");
}

TEST_F(DataSetModel, datesAreSortedUnderTheirHeader)
{
    for (const char* const date : {"10/2/2023 9:00:00", "9/30/2023 23:59:59", "10/2/2023 08:59:59"})
        model.appendRow(new CVolBrowseTreeItem(nullptr, date));
    model.setHorizontalHeaderLabels({"Date and Time"});
    model.sort(0);
    EXPECT_EQ(names(), (QStringList{"9/30/2023 23:59:59", "10/2/2023 08:59:59", "10/2/2023 9:00:00"}));
    model.setHorizontalHeaderLabels({"Name"});
    model.sort(0);
    EXPECT_EQ(names(), (QStringList{"10/2/2023 08:59:59", "10/2/2023 9:00:00", "9/30/2023 23:59:59"}));
}

TEST_F(DataSetModel, itemsOfNoModelCompareAsTexts)
{
    const CVolBrowseTreeItem left(nullptr, "10/2/2023");
    const CVolBrowseTreeItem right(nullptr, "9/2/2023");
    EXPECT_TRUE(left < right);
    EXPECT_FALSE(right < left);
}

TEST_F(DataSetModel, anItemHasEachOfTheBasesForms)
{
    CVolBrowserInfo info;
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    EXPECT_EQ(CVolBrowseTreeItem(&info).m_info, &info);
    EXPECT_EQ(CVolBrowseTreeItem(&info, "a").text(), "a");
    EXPECT_FALSE(CVolBrowseTreeItem(&info, QIcon(pixmap), "a").icon().isNull());
    EXPECT_EQ(CVolBrowseTreeItem(&info, 2, 3).columnCount(), 3);
}

TEST_F(DataSetModel, dataSetsGoWithTheirRows)
{
    for (const char* const name : {"a", "b", "c"})
        model.appendDataSet(scan(name, "1"), QIcon());
    EXPECT_EQ(living, 3);
    model.removeRow(1);
    EXPECT_EQ(living, 2);
    EXPECT_EQ(names(), (QStringList{"a", "c"}));
    model.clear();
    EXPECT_EQ(living, 0);
    model.appendDataSet(scan("d", "1"), QIcon());
    EXPECT_EQ(model.headerData(8, Qt::Horizontal).toString(), "Type");
    EXPECT_EQ(living, 1);
}

TEST_F(DataSetModel, dataSetsGoWithTheModel)
{
    {
        CVolBrowseListItemModel another;
        another.appendDataSet(scan("a", "1"), QIcon());
        EXPECT_EQ(living, 1);
    }
    EXPECT_EQ(living, 0);
}

TEST_F(DataSetModel, nothingGivesNoRow)
{
    EXPECT_FALSE(model.appendDataSet(nullptr, QIcon()).isValid());
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.dataSet(QModelIndex()), nullptr);
    CVolBrowseListItemModel another;
    another.appendDataSet(scan("a", "1"), QIcon());
    EXPECT_EQ(model.dataSet(another.index(0, 0)), nullptr);
}

TEST_F(DataSetModel, arrowKeysTellTheNewRow)
{
    for (const char* const name : {"a", "b", "c"})
        model.appendDataSet(scan(name, "1"), QIcon());
    CVolBrowserTree tree;
    tree.setModel(&model);
    tree.resize(600, 300);
    tree.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tree));
    tree.setCurrentIndex(model.index(0, 0));
    QSignalSpy spy(&tree, SIGNAL(onCurrentSelectionChanged(QModelIndex)));
    QTest::keyClick(&tree, Qt::Key_Down);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.last().first().toModelIndex(), model.index(1, 0));
    QTest::keyClick(&tree, Qt::Key_End);
    EXPECT_EQ(spy.last().first().toModelIndex().row(), 2);
    QTest::keyClick(&tree, Qt::Key_Up);
    EXPECT_EQ(spy.last().first().toModelIndex().row(), 1);
    EXPECT_EQ(spy.count(), 3);
}

TEST_F(DataSetModel, aTreeWithoutAModelTellsNoIndex)
{
    CVolBrowserTree tree;
    QSignalSpy spy(&tree, SIGNAL(onCurrentSelectionChanged(QModelIndex)));
    QTest::keyClick(&tree, Qt::Key_Down);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_FALSE(spy.last().first().toModelIndex().isValid());
}

TEST_F(DataSetModel, columnsAreFittedToTheRowsInSight)
{
    CVolBrowserTree tree;
    EXPECT_EQ(tree.header()->resizeContentsPrecision(), 0);
    EXPECT_TRUE(tree.uniformRowHeights());
    model.appendDataSet(scan("a name that is longer than its header", "1"), QIcon());
    tree.setModel(&model);
    tree.resize(600, 300);
    tree.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tree));
    tree.setColumnWidth(0, 10);
    tree.resizeColumnToContents(0);
    EXPECT_GT(tree.columnWidth(0),
              tree.fontMetrics().horizontalAdvance("a name that is longer than its header"));
}
