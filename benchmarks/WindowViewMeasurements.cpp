#include "CVMeasurements.h"
#include "CVOpenBudget.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionColumns.h"
#include "model/CVTransactionSet.h"
#include "workspace/CVMainWindow.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/transactions/CVTransactionTableView.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <benchmark/benchmark.h>

namespace {

constexpr const char* kSearched = "mark";

void clickHeader(CVTransactionTableView& table, int column) {
    const QHeaderView& header = *table.horizontalHeader();
    const int centre = header.sectionViewportPosition(column) + header.sectionSize(column) / 2;
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(centre, header.height() / 2));
}

void pick(QComboBox& box, int index) {
    box.setCurrentIndex(index);
    emit box.activated(index);
}

/// From "This Year" to "All", the period with the most to show.
void measurePreset(benchmark::State& state, std::size_t transactions, CVMainWindow::Tab tab, const char* name) {
    constexpr int kAll = 0;
    constexpr int kThisYear = 3;
    CVOpenBudget open(transactions);
    open.find<QTabWidget>("mMainTabView").setCurrentIndex(tab);
    auto& presets = open.find<QComboBox>(name);
    open.measure(
        state, [&] { pick(presets, kThisYear); }, [&] { pick(presets, kAll); });
}

/// The pop-up of the sets of a budget whose second set has one transaction.
QComboBox& addSet(CVOpenBudget& open) {
    CVDocument& document = open.document();
    const auto set = std::make_shared<CVTransactionSet>();
    set->setDocument(&document);
    set->setTransactionSetName(QStringLiteral("Savings"));
    set->setUniqueID(document.getUniqueTransactionSetID());
    document.transactionSets().push_back(set);
    document.transactions().back()->setTransactionSetID(set->uniqueID());
    open.controller().getStarted();
    return open.find<QComboBox>("mTransactionSet");
}

} // namespace

void CVMeasureSearchKey(benchmark::State& state, std::size_t transactions, int letter) {
    CVOpenBudget open(transactions);
    auto& field = open.find<QLineEdit>("mSearchField103");
    field.setFocus();
    const QString word = QLatin1String(kSearched);
    open.measure(
        state, [&] { field.setText(word.left(letter - 1)); },
        [&] { QTest::keyClick(&field, word.at(letter - 1).toLatin1()); });
    if (field.text() != word.left(letter))
        state.SkipWithError("the key was not typed");
}

void CVMeasureSearchCleared(benchmark::State& state, std::size_t transactions) {
    CVOpenBudget open(transactions);
    auto& field = open.find<QLineEdit>("mSearchField103");
    open.measure(
        state, [&] { field.setText(QLatin1String(kSearched)); }, [&] { field.clear(); });
}

void CVMeasureTab(benchmark::State& state, std::size_t transactions, int tab) {
    CVOpenBudget open(transactions);
    auto& tabs = open.find<QTabWidget>("mMainTabView");
    open.measure(
        state, [&] { tabs.setCurrentIndex((tab + 1) % tabs.count()); }, [&] { tabs.setCurrentIndex(tab); });
}

void CVMeasurePeriodOfList(benchmark::State& state, std::size_t transactions) {
    measurePreset(state, transactions, CVMainWindow::kTransactions, "mSetTransactionDateRange");
}

void CVMeasurePeriodOfSummary(benchmark::State& state, std::size_t transactions) {
    CVOpenBudget open(transactions);
    open.find<QTabWidget>("mMainTabView").setCurrentIndex(CVMainWindow::kSummary);
    auto& previous = open.find<QPushButton>("mPreviousButton");
    open.measure(
        state, [] {}, [&] { previous.click(); });
}

void CVMeasurePeriodOfReports(benchmark::State& state, std::size_t transactions) {
    measurePreset(state, transactions, CVMainWindow::kReports, "mSetReportDateRange");
}

void CVMeasureSet(benchmark::State& state, std::size_t transactions) {
    CVOpenBudget open(transactions);
    QComboBox& sets = addSet(open);
    open.measure(
        state, [&] { pick(sets, 1); }, [&] { pick(sets, 0); });
}

void CVMeasureAllSets(benchmark::State& state, std::size_t transactions) {
    CVOpenBudget open(transactions);
    QComboBox& sets = addSet(open);
    open.measure(
        state, [&] { pick(sets, 1); }, [&] { pick(sets, sets.count() - 1); });
    if (open.find<CVTransactionTableView>("mTransactionTable").model()->rowCount() != static_cast<int>(transactions))
        state.SkipWithError("not all sets are shown");
}

void CVMeasureSorting(benchmark::State& state, std::size_t transactions, int column) {
    CVOpenBudget open(transactions);
    auto& table = open.find<CVTransactionTableView>("mTransactionTable");
    const int other = column == CVTransactionColumns::Date ? CVTransactionColumns::Amount : CVTransactionColumns::Date;
    open.measure(
        state, [&] { clickHeader(table, other); }, [&] { clickHeader(table, column); });
    if (table.horizontalHeader()->sortIndicatorSection() != column)
        state.SkipWithError("the list was not sorted");
}
