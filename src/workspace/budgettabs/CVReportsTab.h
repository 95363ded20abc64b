#pragma once

#include "base/QBDate.h"
#include "workspace/budgettabs/CVReportColumns.h"

#include <QWidget>

#include <array>

class CVCopyableField;
class CVCategoryTable;
class CVRangeControls;
class CVReportContents;
class CVWrappingLayout;
class QPushButton;
class QTabWidget;

/// The four report tables with the controls of their range. The tab only announces what the user enters.
class CVReportsTab final : public QWidget {
    Q_OBJECT

public:
    /// `contents` outlives the tab.
    explicit CVReportsTab(const CVReportContents& contents, QWidget* parent = nullptr);

    /// The range controls, which announce the presets and days that the user enters.
    [[nodiscard]] CVRangeControls& rangeControls() const { return *mRangeControls; }
    /// Shows the contents as they are now. The range controls are left to the code that sets the range.
    void reload();
    /// Shows the report with that index, 0 to 3, and emits nothing; any other index changes nothing.
    void setReportTab(int index);
    /// Shows a report as if the user had picked it, and gives its table the focus.
    void showReport(CVReportTable report);

    /// The column widths of all tables, for `restoreColumns`.
    [[nodiscard]] QByteArray saveColumns() const;
    /// Restores what `saveColumns` returned; any other bytes give the usual widths.
    void restoreColumns(const QByteArray& columns);

signals:
    void reportTabPicked(int index);
    void presetPicked(int index);
    void startEntered(const QBDate& date);
    void endEntered(const QBDate& date);
    /// The user changed the plan of a row, which is counted from 0.
    void frequencyPicked(int row, int code);
    void targetEntered(int row, double target);
    void printRequested();

private:
    [[nodiscard]] CVWrappingLayout* makeControls();
    [[nodiscard]] CVCategoryTable* addTable(CVReportTable table, const char* objectName, const QString& accessibleName,
                                            const QString& tabText);
    static void setUsualWidths(CVCategoryTable& table, CVReportTable kind);

    const CVReportContents& mContents;
    CVRangeControls* mRangeControls;
    CVCopyableField* mNumberOfTransactionsField2 = nullptr;
    CVCopyableField* mTotalNumberOfTransactionsField2 = nullptr;
    /// Made before the tables, so that it precedes them in the tab order.
    QPushButton* mPrintButton;
    QTabWidget* mReportTabView;
    /// Indexed by CVReportTable.
    std::array<CVCategoryTable*, kReportTables> mTables{};
};
