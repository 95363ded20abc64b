#pragma once

#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "kit/CountingSaver.h"
#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/NotificationCounter.h"
#include "kit/Printers.h"
#include "kit/ScratchHome.h"
#include "kit/ScriptedAlerts.h"
#include "kit/ScriptedPanels.h"
#include "model/CVDocument.h"
#include "preferences/CVPreferenceHost.h"
#include "preferences/CVPreferenceWindowController.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

/// A host that only records the calls of the preferences.
class ScriptedHost final : public CVPreferenceHost {
public:
    void checkForNewVersion(QWidget& asker) override {
        ++checks;
        lastAsker = &asker;
    }
    [[nodiscard]] QString waitForSaves() override { return failure; }
    [[nodiscard]] bool claimPlace(const QString& path, PlaceUse use, QWidget& /*asker*/) override {
        claimed.append(path + (use == PlaceUse::Opened ? " opened" : " replaced"));
        return isFree;
    }
    void settlePlace() override { ++settled; }
    [[nodiscard]] std::optional<QString> reopenDocument() override {
        ++reopened;
        return notReopened;
    }

    void startNewDocument() override { ++begun; }

    [[nodiscard]] QString moveVersions(const QString& from, const QString& to) override {
        moved.append(from + " > " + to);
        return notMoved;
    }

    void versionsDeleted() override { ++deletions; }

    /// The places that were claimed and for what, and how often that was settled; whether a place is free.
    QStringList claimed;
    int settled = 0;
    bool isFree = true;
    int checks = 0;
    int deletions = 0;
    const QWidget* lastAsker = nullptr;
    int reopened = 0;
    int begun = 0;
    /// The answer of reopenDocument().
    std::optional<QString> notReopened;
    /// The data files whose versions were to be moved, as "from > to", and the failure that is reported.
    QStringList moved;
    QString notMoved;
    /// The failure that waitForSaves() reports.
    QString failure;
};

/// The preferences window with its own settings and document.
class PreferencesFixture : public testing::Test {
protected:
    PreferencesFixture() {
        mDocument.setSaver(&mSaver);
        // The settings file exists before the test, so that later writes can be observed.
        defaults().synchronize();
    }

    /// Every alert must have been given the window of its asker.
    void TearDown() override {
        EXPECT_EQ(mAlerts.owners(), QStringList(mAlerts.shown().size(), "Corvella Preferences"));
    }

    CVPreferenceWindowController& open(CVHelpOpener* help = nullptr) {
        mWindow = std::make_unique<CVPreferenceWindowController>(mDocument, mHost, mAlerts, mPanels, help);
        mNotifications.reset();
        mWindow->showWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
        return *mWindow;
    }

    [[nodiscard]] QBUserDefaults& defaults() { return mHome.userDefaults(); }
    [[nodiscard]] int announcements() const { return mNotifications.count(CVNotifications::kPreference); }

    /// The control with that accessible name, on any tab.
    template <typename Widget>
    [[nodiscard]] Widget* control(const QString& name) const {
        for (auto* const widget : mWindow->findChildren<Widget*>()) {
            if (widget->accessibleName() == name)
                return widget;
        }
        ADD_FAILURE() << name.toStdString();
        return nullptr;
    }

    void showTabOf(QWidget* control) const {
        auto* const tabs = mWindow->findChild<QTabWidget*>();
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->widget(i)->isAncestorOf(control))
                tabs->setCurrentIndex(i);
        }
        EXPECT_TRUE(control->isVisible());
    }

    void click(const QString& name) const {
        auto* const button = control<QAbstractButton>(name);
        ASSERT_NE(button, nullptr);
        if (!mWindow->findChild<QTabWidget*>()->isAncestorOf(button)) {
            button->click();
            return;
        }
        showTabOf(button);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
    }

    void pick(const QString& popUp, int index) const {
        auto* const box = control<QComboBox>(popUp);
        ASSERT_NE(box, nullptr);
        showTabOf(box);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            QTest::keyClick(box, Qt::Key_Down);
        EXPECT_EQ(box->currentIndex(), index);
    }

    void typeNumberOfItems(const QString& text) const {
        auto* const field = control<QLineEdit>("Items in Pop-up");
        showTabOf(field);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
    }

    FixedToday mToday{day(2014, 3, 7)};
    ScratchHome mHome;
    QBNotificationCenter mNotificationCenter;
    CVDocument mDocument{mNotificationCenter, mHome.userDefaults()};
    CountingSaver mSaver;
    ScriptedAlerts mAlerts;
    ScriptedPanels mPanels;
    ScriptedHost mHost;
    NotificationCounter mNotifications{mNotificationCenter};
    std::unique_ptr<CVPreferenceWindowController> mWindow;
};
