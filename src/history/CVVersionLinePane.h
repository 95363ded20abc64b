#pragma once

#include "contents/CVVersionSign.h"

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
struct CVBudgetDifferences;

/// The lower half of the window with the earlier versions: what was removed, added and changed since the chosen one, as
/// a table that can be searched and sorted, with a check box for each of the three.
class CVVersionLinePane final : public QWidget {
    Q_OBJECT

public:
    explicit CVVersionLinePane(QWidget* parent);

    /// Null gives no lines. Lines that were shown and selected before stay selected.
    void show(std::shared_ptr<const CVBudgetDifferences> differences);
    /// Says why there are no lines; a search that finds none says so itself.
    void setMessage(const QString& message);
    /// Whether there are lines that can be brought back when they are selected.
    [[nodiscard]] bool hasReturnable() const;
    [[nodiscard]] bool hasSelection() const;
    /// The number of selected lines that can be brought back: those that were removed or changed.
    [[nodiscard]] std::size_t countReturnable() const;
    /// Those lines; not to be called when there are none.
    [[nodiscard]] CVBudgetDifferences returnable() const;

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
    void addSigns(QHBoxLayout& row);
    void addSearch(QHBoxLayout& row);
    void addTable();
    void showCounts();
    void showMessage();
    [[nodiscard]] std::vector<std::size_t> returnableLines() const;
    [[nodiscard]] QString textOfRow(int row) const;
    using Counts = QHash<QString, int>;
    void select(Counts rows);

    CVVersionLineModel* mModel;
    CVTableView* mTable;
    /// In the order of `CVVersionSign`.
    std::array<QCheckBox*, kCVVersionSigns> mSigns{};
    QLineEdit* mSearch = nullptr;
    std::shared_ptr<const CVBudgetDifferences> mDifferences;
    QString mMessage;
};
