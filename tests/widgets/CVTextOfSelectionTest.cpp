#include "widgets/tables/CVTextOfSelection.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QStandardItemModel>
#include <QTableView>

#include <gtest/gtest.h>

namespace {

/// Names and amounts.
class CVTextOfSelectionTest : public testing::Test {
protected:
    CVTextOfSelectionTest() {
        for (const auto& [name, amount] : {std::pair("<b>Dr. Lee & Sons</b>", "$1,234.50"), std::pair("A\tB\nC", "-2"),
                                           std::pair("Zoë \"x\"", "")}) {
            auto* const right = new QStandardItem(amount);
            right->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            mModel.appendRow({new QStandardItem(QString::fromUtf8(name)), right, new QStandardItem("food")});
        }
        mTable.setModel(&mModel);
    }

    void select(int row, int column) {
        mTable.selectionModel()->select(mModel.index(row, column), QItemSelectionModel::Select);
    }
    /// The rows of the table.
    [[nodiscard]] QStringList rows() const {
        const QString html = CVHTMLOfSelection(mTable);
        EXPECT_TRUE(
            html.startsWith("<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">\n<table>\n"));
        EXPECT_TRUE(html.endsWith("\n</table>\n"));
        const QStringList lines = html.split('\n');
        return lines.mid(2, lines.size() - 4);
    }

    QStandardItemModel mModel;
    QTableView mTable;
};

TEST_F(CVTextOfSelectionTest, WholeRowsAreRowsOfATableWithEscapedTextsAndNumbersAtTheRight) {
    mTable.setSelectionBehavior(QAbstractItemView::SelectRows);
    mTable.selectAll();
    EXPECT_EQ(rows(),
              (QStringList{"<tr><td>&lt;b&gt;Dr. Lee &amp; Sons&lt;/b&gt;</td><td align=\"right\">$1,234.50</td>"
                           "<td>food</td></tr>",
                           "<tr><td>A B C</td><td align=\"right\">-2</td><td>food</td></tr>",
                           "<tr><td>Zoë &quot;x&quot;</td><td align=\"right\"></td><td>food</td></tr>"}));
}

TEST_F(CVTextOfSelectionTest, ChosenCellsKeepTheirColumns) {
    mTable.setSelectionBehavior(QAbstractItemView::SelectItems);
    select(0, 1);
    select(2, 2);
    EXPECT_EQ(rows(),
              (QStringList{"<tr><td align=\"right\">$1,234.50</td><td></td></tr>", "<tr><td></td><td>food</td></tr>"}));
}

TEST_F(CVTextOfSelectionTest, TheClipboardHasTheTextAsBeforeAndTheTable) {
    mTable.setSelectionBehavior(QAbstractItemView::SelectRows);
    mTable.selectRow(1);
    CVCopySelection(mTable);
    const QMimeData& data = *QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data.text(), "A B C\t-2\tfood\n");
    EXPECT_EQ(data.html(), CVHTMLOfSelection(mTable));
}

TEST_F(CVTextOfSelectionTest, VeryManyCellsAreTextAlone) {
    mTable.setSelectionBehavior(QAbstractItemView::SelectRows);
    mModel.setRowCount(70'000);
    mTable.selectAll();
    CVCopySelection(mTable);
    const QMimeData& data = *QGuiApplication::clipboard()->mimeData();
    EXPECT_FALSE(data.hasHtml());
    EXPECT_EQ(data.text().count('\n'), 70'000);
}

} // namespace
