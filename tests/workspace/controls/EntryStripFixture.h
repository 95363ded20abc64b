#pragma once

#include "kit/Day.h"
#include "kit/FixedToday.h"
#include "kit/Printers.h"
#include "workspace/controls/CVEntryStrip.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <functional>

/// An entry strip above another field, with an owner that records and shows problems like the main window.
class EntryStripFixture : public testing::Test {
protected:
    EntryStripFixture() {
        auto* const layout = new QVBoxLayout(&mWindow);
        layout->setMenuBar(mMenuBar);
        mMenuBar->addMenu("&View")->addAction("Nothing");
        layout->addWidget(mStrip);
        layout->addWidget(mOther);
        mStrip->setPaidToItems({"Market", "Bakery"});
        mStrip->setCategoryItems({"Car", "Growth", "Groceries"});
        QObject::connect(mStrip, &CVEntryStrip::recordRequested, mStrip, [this] {
            ++mRecorded;
            if (const auto problem = mStrip->endEditing())
                show(*problem);
        });
        QObject::connect(mStrip, &CVEntryStrip::dateRefused, mStrip,
                         [this](const CVEntryProblem& problem) { show(problem); });
        mWindow.show();
        mWindow.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mWindow));
        mStrip->focusField(CVEntryField::Date);
    }

    void show(const CVEntryProblem& problem) {
        mProblems.append(problem.message);
        mTitles.append(problem.title);
        if (mShowAlert)
            mShowAlert();
        mStrip->focusField(problem.field);
    }

    template <typename Widget = QWidget>
    [[nodiscard]] Widget* find(const char* name) const {
        auto* const widget = mStrip->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    [[nodiscard]] QLineEdit& date() const { return *find<QLineEdit>("mExpenseDate"); }
    [[nodiscard]] QPushButton& recordButton() const { return *find<QPushButton>("mRecordButton"); }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    static void type(const QString& text) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

    void typeDate(const QString& text) const {
        mStrip->focusField(CVEntryField::Date);
        type(text);
    }

    [[nodiscard]] static QString focused() {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }

    /// Waits long enough for all delayed work.
    static void settle() { QTest::qWait(150); }

    FixedToday mToday{day(2014, 3, 12)};
    QWidget mWindow;
    QMenuBar* mMenuBar = new QMenuBar(&mWindow);
    CVEntryStrip* mStrip = new CVEntryStrip(&mWindow);
    QLineEdit* mOther = new QLineEdit(&mWindow);
    int mRecorded = 0;
    QStringList mProblems;
    QStringList mTitles;
    std::function<void()> mShowAlert;
};
