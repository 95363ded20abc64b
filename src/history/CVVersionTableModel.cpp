#include "history/CVVersionTableModel.h"

#include "format/QBLocale.h"
#include "history/CVVersionText.h"
#include "widgets/fields/CVCellAlignment.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>

namespace {

constexpr char16_t kMinus = u'−';

QString number(std::size_t count) {
    return QBLocaleInForce().toString(static_cast<qulonglong>(count));
}

/// Keeps signs before their numbers where the window is laid out from right to left.
QString fromLeftToRight(const QString& text) {
    return QGuiApplication::isRightToLeft() ? QChar(0x2066) + text + QChar(0x2069) : text;
}

} // namespace

void CVVersionTableModel::setVersions(const QList<CVListedVersion>& versions, std::size_t presentTransactions) {
    mPresentTransactions = presentTransactions;
    const bool isSame =
        std::equal(versions.begin(), versions.end(), mRows.begin(), mRows.end(),
                   [](const CVListedVersion& version, const Row& row) { return version == row.version; });
    if (isSame && rowCount() > 0)
        return changed(0, 0);
    beginResetModel();
    std::vector<Row> rows;
    for (const CVListedVersion& version : versions)
        rows.push_back({version, findingsAt(rowOf(version.path))});
    mRows = std::move(rows);
    endResetModel();
}

void CVVersionTableModel::setFindings(const CVVersionFindings& findings) {
    const int row = rowOf(findings.path);
    if (row == 0)
        return;
    CVVersionFindings kept = findings;
    kept.version.reset();
    kept.differences.reset();
    mRows[static_cast<std::size_t>(row) - 1].findings = std::move(kept);
    changed(row, row);
}

void CVVersionTableModel::updateFormats() {
    changed(0, rowCount() - 1);
}

void CVVersionTableModel::changed(int first, int last) {
    emit dataChanged(index(first, 0), index(last, ColumnCount - 1));
}

const CVListedVersion* CVVersionTableModel::versionAt(int row) const {
    return row < 1 || row >= rowCount() ? nullptr : &mRows[static_cast<std::size_t>(row) - 1].version;
}

std::optional<CVVersionFindings> CVVersionTableModel::findingsAt(int row) const {
    return versionAt(row) ? mRows[static_cast<std::size_t>(row) - 1].findings : std::nullopt;
}

int CVVersionTableModel::rowOf(const QString& path) const {
    const auto found =
        std::find_if(mRows.begin(), mRows.end(), [&path](const Row& row) { return row.version.path == path; });
    return found == mRows.end() ? 0 : static_cast<int>(found - mRows.begin()) + 1;
}

int CVVersionTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(mRows.size()) + 1;
}

int CVVersionTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant CVVersionTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), index.column(), Wording::Signs);
    case Qt::AccessibleTextRole:
        return text(index.row(), index.column(), Wording::Words);
    case Qt::ToolTipRole:
        return index.column() == Differences ? text(index.row(), index.column(), Wording::Words) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant(index.column() == Transactions ? kCVNumberAlignment : kCVTextAlignment);
    default:
        return {};
    }
}

QVariant CVVersionTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::TextAlignmentRole)
        return QVariant(section == Transactions ? kCVNumberAlignment : kCVTextAlignment);
    if (role == Qt::ToolTipRole && section == Differences)
        return tr("What was added (+), removed (−) and changed (~) since then");
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
    case When:
        return tr("When");
    case Kept:
        return tr("Kept");
    case Transactions:
        return tr("Transactions");
    default:
        return tr("Differs From Now");
    }
}

QString CVVersionTableModel::text(int row, int column, Wording wording) const {
    if (row == 0) {
        switch (column) {
        case When:
            return tr("now");
        case Kept:
            return tr("the present budget");
        case Transactions:
            return number(mPresentTransactions);
        default:
            return {};
        }
    }
    const Row& shown = mRows[static_cast<std::size_t>(row) - 1];
    switch (column) {
    case When:
        return CVVersionText::moment(shown.version.kept);
    case Kept:
        return keptText(shown);
    case Transactions:
        return shown.findings && shown.findings->problem.isEmpty() ? number(shown.findings->transactions) : QString();
    default:
        return differencesText(shown, wording);
    }
}

QString CVVersionTableModel::keptText(const Row& row) {
    const CVListedVersion& version = row.version;
    if (version.reason)
        return CVVersionText::reason(*version.reason);
    return version.copyReason ? CVVersionText::reason(*version.copyReason) : QString();
}

QString CVVersionTableModel::differencesText(const Row& row, Wording wording) {
    if (!row.findings)
        return QStringLiteral("…");
    if (!row.findings->problem.isEmpty())
        return tr("cannot be read: %1").arg(row.findings->problem);
    const auto& counts = row.findings->counts;
    const std::array parts{std::tuple{CVVersionSign::Added, QChar(u'+'), tr("%1 added")},
                           std::tuple{CVVersionSign::Removed, QChar(kMinus), tr("%1 removed")},
                           std::tuple{CVVersionSign::Changed, QChar(u'~'), tr("%1 changed")}};
    QStringList texts;
    for (const auto& [sign, mark, words] : parts) {
        if (const std::size_t count = counts[static_cast<std::size_t>(sign)])
            texts.append(wording == Wording::Words ? words.arg(number(count)) : mark + number(count));
    }
    if (texts.isEmpty())
        return tr("not at all");
    return wording == Wording::Words ? tr("%1 since then").arg(texts.join(tr(", ")))
                                     : fromLeftToRight(texts.join(u' '));
}
