#pragma once

#include "CVScratchHome.h"
#include "app/CVAppDelegate.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVFilePanels.h"

#include <QMainWindow>

#include <functional>

namespace benchmark {
class State;
}

/// The application on a budget of that size, read from a file and saved to it, with its main window painted into
/// memory. Questions are answered with their default button.
class CVOpenBudget final {
public:
    explicit CVOpenBudget(std::size_t transactions);

    [[nodiscard]] CVDocument& document() { return mDelegate.document(); }
    [[nodiscard]] CVMainWindowController& controller() { return *mDelegate.mainWindow(); }

    template <typename Widget>
    [[nodiscard]] Widget& find(const char* name) {
        auto* const widget = window().findChild<Widget*>(QLatin1String(name));
        if (!widget)
            qFatal("There is no %s", name);
        return *widget;
    }

    /// Reports as the counter "measured" for how many milliseconds an action of the user's holds the main thread, until
    /// the window is painted and no event is left; the median. `reset` runs before each and does not count.
    void measure(benchmark::State& state, const std::function<void()>& reset, const std::function<void()>& act);

private:
    class DefaultAnswers final : public CVAlerts {
        CVAlert::Answer run(QWidget* /*window*/, const CVAlert& /*alert*/) override { return CVAlert::kDefault; }
    };
    class NoPanels final : public CVFilePanels {
        std::optional<CVSaveLocation> chooseSaveLocation(QWidget& /*window*/,
                                                         const CVSavePanelRequest& /*request*/) override {
            return std::nullopt;
        }
        std::optional<QString> chooseFolder(QWidget& /*window*/, const CVFolderPanelRequest& /*request*/) override {
            return std::nullopt;
        }
        std::optional<QString> chooseFile(QWidget& /*window*/, const CVOpenPanelRequest& /*request*/) override {
            return std::nullopt;
        }
    };

    [[nodiscard]] QMainWindow& window();
    void settle();

    CVScratchHome mHome;
    DefaultAnswers mAlerts;
    NoPanels mPanels;
    CVAppDelegate mDelegate;
};
