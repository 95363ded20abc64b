#include "CVOpenBudget.h"

#include "CVStopwatch.h"
#include "workspace/CVMainWindowController.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QSettings>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

/// Whether anything of a window was painted.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QMainWindow& window) : mWindow(window) { qApp->installEventFilter(this); }

    void forget() { mPainted = false; }
    [[nodiscard]] bool hasPainted() const { return mPainted; }

private:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            const auto* const widget = qobject_cast<QWidget*>(receiver);
            mPainted = mPainted || (widget && widget->window() == &mWindow);
        }
        return false;
    }

    QMainWindow& mWindow;
    bool mPainted = false;
};

void handleAllEvents() {
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    }
}

} // namespace

CVOpenBudget::CVOpenBudget(std::size_t transactions)
    : mHome(transactions)
    , mDelegate(mHome.settings(), mHome.folders(), mAlerts, mPanels) {
    if (!mDelegate.applicationDidFinishLaunching())
        qFatal("The budget was not read");
    settle();
}

void CVOpenBudget::measure(benchmark::State& state, const std::function<void()>& reset,
                           const std::function<void()>& act) {
    PaintWatch watch(window());
    std::vector<double> held;
    std::vector<double> busy;
    for ([[maybe_unused]] auto iteration : state) {
        reset();
        settle();
        watch.forget();
        const double before = CVSecondsNow(CVClock::Thread);
        held.push_back(CVSecondsOf(CVClock::Wall, [&act] {
            act();
            handleAllEvents();
        }));
        busy.push_back(CVSecondsNow(CVClock::Thread) - before);
        state.SetIterationTime(held.back());
        if (!watch.hasPainted()) {
            state.SkipWithError("nothing was painted");
            return;
        }
    }
    state.counters["measured"] = CVMedian(std::move(held)) * 1000;
    // What other programs on the machine do not disturb: a median far above it was taken at a busy moment.
    state.counters["busy"] = CVMedian(std::move(busy)) * 1000;
}

QMainWindow& CVOpenBudget::window() {
    return *controller().window();
}

/// Until everything is painted and saved.
void CVOpenBudget::settle() {
    handleAllEvents();
    static_cast<void>(mDelegate.saves().waitForFinished());
    handleAllEvents();
}
