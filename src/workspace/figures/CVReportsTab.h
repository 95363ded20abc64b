#pragma once

#include "base/QBDate.h"
#include "workspace/figures/CVReportColumns.h"

#include <QWidget>

#include <array>

class CVFigureField;
class CVFiguresTable;
class CVRangeControls;
class CVReportContents;
class CVWrappingLayout;
class QPushButton;
class QTabWidget;

/// The four report tables with the controls of their range. It announces what the user enters and changes nothing
/// itself.
class CVReportsTab final : public QWidget {
    Q_OBJECT

public:
    /// `contents` outlives the tab.
    explicit CVReportsTab(const CVReportContents& contents, QWidget* parent = nullptr);

    /// Presets and days that the user enters are announced by these too.
    [[nodiscard]] CVRangeControls& rangeControls() const { return *mRangeControls; }
    /// Shows the contents as they are now; the range controls belong to whoever sets the range.
    void reload();
    /// 0 to 3, any other index changes nothing; announces nothing.
    void setReportTab(int index);
    /// The same as if the user picked it, with the focus in its table.
    void showReport(CVReportTable report);

    /// The widths of the columns of all tables, for `restoreColumns`.
    [[nodiscard]] QByteArray saveColumns() const;
    /// Nothing that `saveColumns` has made: the usual widths.
    void restoreColumns(const QByteArray& columns);

signals:
    void reportTabPicked(int index);
    void presetPicked(int index);
    void startEntered(const QBDate& date);
    void endEntered(const QBDate& date);
    /// The user changed a row's plan; counted from 0.
    void frequencyPicked(int row, int code);
    void targetEntered(int row, double target);
    void printRequested();

private:
    [[nodiscard]] CVWrappingLayout* makeControls();
    [[nodiscard]] CVFiguresTable* addTable(CVReportTable table, const char* objectName, const QString& accessibleName,
                                           const QString& tabText);
    static void setUsualWidths(CVFiguresTable& table, CVReportTable kind);

    const CVReportContents& mContents;
    CVRangeControls* mRangeControls;
    CVFigureField* mNumberOfTransactionsField2 = nullptr;
    CVFigureField* mTotalNumberOfTransactionsField2 = nullptr;
    /// Made before the tables, so that Tab meets it before them.
    QPushButton* mPrintButton;
    QTabWidget* mReportTabView;
    /// By CVReportTable.
    std::array<CVFiguresTable*, kReportTables> mTables{};
};
