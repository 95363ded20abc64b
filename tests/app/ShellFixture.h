#pragma once

#include "app/CVAppDelegate.h"
#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"
#include "kit/ScriptedAlerts.h"
#include "kit/ScriptedPanels.h"
#include "kit/ScriptedURLs.h"
#include "kit/UpdateServer.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "preferences/CVPreferenceWindowController.h"
#include "workspace/CVMainWindowController.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QSettings>
#include <QTest>

#include <gtest/gtest.h>

/// The whole program with a user's folders and an update service on this machine.
class ShellFixture : public testing::Test {
protected:
    static constexpr int kPatience = 20'000;

    void start() {
        // The settings of the earlier run are written to the disk, and those of this run are read from it.
        mHome.userDefaults().synchronize();
        mDelegate = std::make_unique<CVAppDelegate>(mHome.settingsStore(), mHome.folders(), mAlerts, mPanels);
        mDelegate->setURLOpener(&mURLs);
        mDelegate->updates().setService({mServer.address(), "com.quenbylabs.corvella", mVersion}, mLimits);
        ASSERT_TRUE(mDelegate->applicationDidFinishLaunching());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()));
    }

    void quit() {
        ASSERT_TRUE(window().close());
        mDelegate.reset();
    }

    [[nodiscard]] QMainWindow& window() const { return *mDelegate->mainWindow()->window(); }
    [[nodiscard]] CVDocument& document() const { return mDelegate->document(); }
    [[nodiscard]] QBUserDefaults& defaults() const { return document().userDefaults(); }
    [[nodiscard]] QStringList titles() const {
        QStringList titles;
        for (const CVAlert& alert : mAlerts.shown())
            titles.append(alert.title);
        return titles;
    }

    /// Chooses a command of the main window's menus.
    void choose(const QString& text) const {
        for (QAction* const action : window().findChildren<QAction*>()) {
            if (action->text().remove('&') == text)
                return action->trigger();
        }
        ADD_FAILURE() << text.toStdString();
    }

    template <typename Widget>
    [[nodiscard]] Widget* preference(const QString& name) const {
        for (auto* const widget : mDelegate->preferences()->findChildren<Widget*>()) {
            if (widget->accessibleName() == name)
                return widget;
        }
        ADD_FAILURE() << name.toStdString();
        return nullptr;
    }

    void record(double amount, const QString& payTo, const QString& category) const {
        const auto transaction = std::make_shared<CVTransaction>();
        transaction->setEffectiveDate(day(2014, 3, 6));
        transaction->setAmount(amount);
        transaction->setFor("");
        transaction->setPayTo(payTo);
        transaction->setCategoryID(document().insertCategoryName(category)->uniqueID());
        document().insertTransaction(transaction);
        document().workbookSave();
        mDelegate->mainWindow()->getStarted();
    }

    /// Waits for the last save, and until the window knows of it.
    void saved() const {
        EXPECT_TRUE(mDelegate->saves().waitForFinished().saved);
        QCoreApplication::processEvents();
    }

    /// A budget with one transaction that is in the file.
    void startWithBudget() {
        start();
        record(12, "Market", "Food");
        saved();
    }

    FixedToday mToday{day(2014, 3, 7)};
    ScratchHome mHome;
    ScriptedAlerts mAlerts;
    ScriptedPanels mPanels;
    ScriptedURLs mURLs;
    UpdateServer mServer;
    QString mVersion = QStringLiteral("1.0");
    CVFetchLimits mLimits{std::chrono::milliseconds(1500), std::chrono::milliseconds(3000)};
    std::unique_ptr<CVAppDelegate> mDelegate;
};
