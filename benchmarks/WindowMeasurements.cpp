#include "CVBudgetFixture.h"
#include "CVComparison.h"
#include "CVCountAllocations.h"
#include "CVMeasurements.h"
#include "CVWalkPlainly.h"
#include "model/CVTransaction.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVFilePanels.h"
#include "workspace/CVMainWindowController.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>

#include <benchmark/benchmark.h>

namespace {

class NoAlerts final : public CVAlerts {
    CVAlert::Answer run(const CVAlert& /*alert*/) override { return CVAlert::kAlternate; }
};

class NoPanels final : public CVFilePanels {
    std::optional<QString> chooseSaveLocation(QWidget& /*window*/, const CVSavePanelRequest& /*request*/) override {
        return std::nullopt;
    }
    std::optional<QString> chooseFolder(QWidget& /*window*/, const CVFolderPanelRequest& /*request*/) override {
        return std::nullopt;
    }
};

/// The main window on a budget, painted into memory.
class OpenWindow final {
public:
    explicit OpenWindow(std::size_t transactions)
        : mFixture(transactions)
        , mController(mFixture.document(), mAlerts, mPanels) {
        mController.showWindow();
        repaint();
    }

    [[nodiscard]] CVMainWindowController& controller() { return mController; }
    [[nodiscard]] CVDocument& document() { return mFixture.document(); }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) const {
        return *mController.window()->findChild<Widget*>(QLatin1String(name));
    }

    [[nodiscard]] QPushButton& buttonNamed(const char* accessibleName) const {
        for (QPushButton* const button : mController.window()->findChildren<QPushButton*>()) {
            if (button->accessibleName() == QLatin1String(accessibleName))
                return *button;
        }
        qFatal("There is no button %s", accessibleName);
    }

    /// Runs events until all pending painting is done.
    static void repaint() { QCoreApplication::processEvents(); }

    /// Compares a user's action and the painting that follows with one walk over the transactions.
    void measure(benchmark::State& state, const std::function<void()>& reset, const std::function<void()>& act) {
        CVComparison comparison;
        comparison.clock = CVClock::Thread;
        comparison.reset = [&] {
            reset();
            repaint();
        };
        comparison.yardstick = [&] { CVWalkPlainly(document().transactions()); };
        comparison.subject = [&] {
            act();
            repaint();
        };
        comparison.run(state);
    }

private:
    NoAlerts mAlerts;
    NoPanels mPanels;
    CVBudgetFixture mFixture;
    CVMainWindowController mController;
};

} // namespace

void CVMeasureWindowRecord(benchmark::State& state, std::size_t transactions) {
    OpenWindow window(transactions);
    const auto& categories = window.find<QComboBox>("mExpenseCategoryComboBox");
    int next = 0;
    const auto fillIn = [&] {
        const QString category = categories.itemText(++next % categories.count());
        window.find<QLineEdit>("mExpenseAmountField").setText(QStringLiteral("12.34"));
        window.find<QComboBox>("mExpenseToFromComboBox").setEditText(QStringLiteral("Corner Market"));
        window.find<QComboBox>("mExpenseCategoryComboBox").setEditText(category);
    };
    window.measure(state, fillIn, [&] { window.controller().record(); });
}

void CVMeasureWindowSearch(benchmark::State& state, std::size_t transactions) {
    OpenWindow window(transactions);
    auto& field = window.find<QLineEdit>("mSearchField103");
    const QStringList texts{"m", "ma", "mar", "mark", ""};
    qsizetype next = 0;
    window.measure(
        state, [] {}, [&] { field.setText(texts[next++ % texts.size()]); });
}

void CVMeasureWindowTab(benchmark::State& state, std::size_t transactions) {
    OpenWindow window(transactions);
    auto& tabs = window.find<QTabWidget>("mMainTabView");
    window.measure(
        state, [] {}, [&] { tabs.setCurrentIndex((tabs.currentIndex() + 1) % tabs.count()); });
}

void CVMeasureWindowPeriod(benchmark::State& state, std::size_t transactions) {
    OpenWindow window(transactions);
    window.find<QTabWidget>("mMainTabView").setCurrentIndex(1);
    QPushButton& previous = window.buttonNamed("Previous");
    window.measure(
        state, [] {}, [&] { previous.click(); });
}

/// Compares the allocations of scrolling by a page with the number of cells that come into view. The allocations of
/// scrolling by a single row are subtracted, because every scroll needs those.
void CVMeasureWindowScroll(benchmark::State& state, std::size_t transactions) {
    OpenWindow window(transactions);
    auto& table = window.find<QTableView>("mTransactionTable");
    QScrollBar& bar = *table.verticalScrollBar();
    const int row = table.rowHeight(0);
    const int page = table.viewport()->height() / row * row;
    const auto allocationsOf = [&](int step, int times) {
        const std::size_t before = CVCountAllocations();
        for (int i = 0; i < times; ++i) {
            bar.setValue(bar.value() + step <= bar.maximum() ? bar.value() + step : 0);
            OpenWindow::repaint();
        }
        return static_cast<double>(CVCountAllocations() - before) / times;
    };
    // A text is laid out when it is first shown: these pages fill the kept glyphs before the measurement.
    constexpr int kPagesBefore = 500;
    constexpr int kSteps = 50;
    allocationsOf(page, kPagesBefore);
    for ([[maybe_unused]] auto iteration : state) {
        const double more = allocationsOf(page, kSteps) - allocationsOf(row, kSteps);
        const double cells = static_cast<double>(page / row - 1) * table.model()->columnCount();
        state.SetIterationTime(0);
        state.counters["yardstick"] = cells;
        state.counters["subject"] = more;
        state.counters["ratio"] = more / cells;
    }
}
