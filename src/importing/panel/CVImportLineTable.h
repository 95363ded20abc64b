#pragma once

#include "widgets/tables/CVTableView.h"

#include <vector>

class CVImportLineDelegate;
class CVImportLineModel;
class QBUserDefaults;

/// The table with the lines of a statement. Space checks the selected lines, Return edits the category of the current
/// one.
class CVImportLineTable final : public CVTableView {
    Q_OBJECT

public:
    /// The table becomes the model's parent.
    CVImportLineTable(CVImportLineModel& model, QWidget* parent);

    /// The items to which payees and categories are completed.
    void setItems(const QStringList& payees, const QStringList& categories);
    [[nodiscard]] std::vector<std::size_t> selectedLines() const;
    /// Makes the row with that line the current one, where the search and the kind let it through.
    void showLine(std::size_t line);
    void restoreColumns(const QBUserDefaults& defaults);
    void keepColumns(QBUserDefaults& defaults) const;

signals:
    void selectedLinesChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void setUpColumns();
    void fitColumns();
    void toggleSelected();

    CVImportLineModel& mModel;
    CVImportLineDelegate* mDelegate;
    /// Whether the user has chosen the widths of the columns.
    bool mHasOwnWidths = false;
    bool mIsFitting = false;
};
