#include "widgets/tables/CVTextOfSelection.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <set>

namespace {

/// More take much memory; their text has its tabs.
constexpr qsizetype kMostCellsOfHTML = 200'000;

QString cellText(const QModelIndex& cell) {
    const QVariant spoken = cell.data(Qt::AccessibleTextRole);
    // A tab or a line break in a cell would split it into two cells.
    return (spoken.isValid() ? spoken : cell.data()).toString().simplified();
}

/// The selected cells in no certain order. Where whole rows are selected, a row stands for all its cells.
QModelIndexList selectedCells(const QAbstractItemView& table) {
    const QItemSelectionModel& selection = *table.selectionModel();
    if (table.selectionBehavior() == QAbstractItemView::SelectItems)
        return selection.selectedIndexes();
    QModelIndexList cells;
    for (const QModelIndex& row : selection.selectedRows()) {
        for (int column = 0; column < table.model()->columnCount(); ++column)
            cells.append(row.siblingAtColumn(column));
    }
    return cells;
}

/// As the table aligns it: numbers stand at the right.
QString htmlOfCell(const QModelIndex& cell) {
    const bool isRight = (cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0;
    return (isRight ? QStringLiteral("<td align=\"right\">") : QStringLiteral("<td>")) +
           cellText(cell).toHtmlEscaped() + QStringLiteral("</td>");
}

} // namespace

QString CVTextOfSelection(const QAbstractItemView& table) {
    QModelIndexList cells = selectedCells(table);
    std::sort(cells.begin(), cells.end());
    QString text;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (i > 0)
            text += cells[i].row() == cells[i - 1].row() ? '\t' : '\n';
        text += cellText(cells[i]);
    }
    return text + '\n';
}

QString CVHTMLOfSelection(const QAbstractItemView& table) {
    QModelIndexList cells = selectedCells(table);
    if (cells.size() > kMostCellsOfHTML)
        return {};
    std::sort(cells.begin(), cells.end());
    std::set<int> columns;
    for (const QModelIndex& cell : cells)
        columns.insert(cell.column());
    // Programs that take the bytes from the clipboard would guess another encoding.
    QString html = QStringLiteral("<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">\n<table>\n");
    for (auto cell = cells.cbegin(); cell != cells.cend();) {
        const int row = cell->row();
        html += QStringLiteral("<tr>");
        for (const int column : columns) {
            const bool isSelected = cell != cells.cend() && cell->row() == row && cell->column() == column;
            html += isSelected ? htmlOfCell(*cell++) : QStringLiteral("<td></td>");
        }
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</table>\n");
}

void CVCopySelection(const QAbstractItemView& table) {
    // The clipboard takes the data over.
    auto* const data = new QMimeData;
    data->setText(CVTextOfSelection(table));
    if (const QString html = CVHTMLOfSelection(table); !html.isEmpty())
        data->setHtml(html);
    QGuiApplication::clipboard()->setMimeData(data);
}
