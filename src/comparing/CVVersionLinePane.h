#pragma once

#include "contents/CVVersionLines.h"
#include "widgets/tables/CVSharedWidths.h"

#include <QHash>
#include <QWidget>

#include <array>
#include <memory>
#include <vector>

class CVTableView;
class CVVersionLineModel;
class QBUserDefaults;
class QCheckBox;
class QHBoxLayout;
class QLineEdit;

/// What was removed, added and changed since an earlier version, or in another file, as a table that can be searched
/// and sorted, with a check box for each group of lines. The columns are as wide as their contents need, as long as the
/// user gives them no widths.
class CVVersionLinePane final : public QWidget {
    Q_OBJECT

public:
    /// The columns are remembered under `columnsKey`.
    CVVersionLinePane(CVComparedWith with, const char* columnsKey, QWidget* parent);

    /// Null gives no lines. Lines that were shown and selected before stay selected.
    void show(std::shared_ptr<const CVBudgetDifferences> differences, CVVersionLines::ChangedTwice changedTwice = {});
    /// Says why there are no lines; a search that finds none says so itself.
    void setMessage(const QString& message);
    /// Whether there are lines that can be taken over when they are selected: all of another file, and those that were
    /// removed or changed since a version.
    [[nodiscard]] bool hasTakeable() const;
    [[nodiscard]] bool hasSelection() const;
    /// The number of all lines, whether the search lets them through or not.
    [[nodiscard]] std::size_t countAll() const;
    /// The number of selected lines that can be taken over.
    [[nodiscard]] std::size_t countTakeable() const;
    /// Those lines; not to be called when there are none.
    [[nodiscard]] CVBudgetDifferences takeable() const;

    void focusTable();
    /// Whether there was a search with the focus, which is cleared.
    bool clearFocusedSearch();
    /// Writes dates and amounts anew, in the locale now in force.
    void updateFormats();
    void restoreColumns(const QBUserDefaults& defaults);
    void keepColumns(QBUserDefaults& defaults) const;

signals:
    void selectionChanged();

private:
    void addGroups(QHBoxLayout& row);
    void addSearch(QHBoxLayout& row);
    void addTable();
    void showCounts();
    void showMessage();
    [[nodiscard]] bool isFitted() const;
    void measureColumns();
    void fitColumns();
    void keepWidthsOfUser();
    bool eventFilter(QObject* watched, QEvent* event) override;
    [[nodiscard]] std::vector<std::size_t> takeableLines() const;
    [[nodiscard]] QString textOfRow(int row) const;
    using Counts = QHash<QString, int>;
    void select(Counts rows);

    CVComparedWith mWith;
    const char* mColumnsKey;
    CVVersionLineModel* mModel;
    CVTableView* mTable;
    /// In the order of `CVVersionLines::Group`.
    std::array<QCheckBox*, CVVersionLines::kGroups> mGroups{};
    QLineEdit* mSearch = nullptr;
    std::shared_ptr<const CVBudgetDifferences> mDifferences;
    CVVersionLines::ChangedTwice mChangedTwice;
    QString mMessage;
    std::vector<CVColumnNeed> mNeeds;
    bool mIsFitting = false;
};
