#pragma once

#include <QWidget>

class CVCopyableField;
class CVGridContents;
class CVGridTables;
class QComboBox;
class QHBoxLayout;
class QPushButton;

/// The budget grid with the controls that choose its periods. The tab only announces what the user wants.
class CVSummaryTab final : public QWidget {
    Q_OBJECT

public:
    /// `contents` outlives the tab.
    explicit CVSummaryTab(const CVGridContents& contents, QWidget* parent = nullptr);

    /// Shows the contents as they are now.
    void reload();
    /// Shows the type of period with that index, 0 to 3; emits nothing.
    void setPeriodType(int periodType);

signals:
    void periodTypePicked(int periodType);
    void previousRequested();
    void nextRequested();
    void todayRequested();
    void printRequested();
    /// The user wants to see the transactions behind a cell. Rows and columns are counted from 0.
    void cellActivated(int row, int column);

private:
    [[nodiscard]] QPushButton* addButton(QHBoxLayout& layout, const char* objectName, const QString& text,
                                         const QString& toolTip);

    const CVGridContents& mContents;
    QComboBox* mExpensePeriod;
    CVGridTables* mTables;
    CVCopyableField* mExpenseDisplayRangeField;
};
