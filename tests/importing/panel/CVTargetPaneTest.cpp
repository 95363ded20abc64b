#include "importing/panel/CVTargetPane.h"

#include "kit/BudgetBuilder.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Income = CVImportTargets::Income;

class CVTargetPaneTest : public testing::Test {
protected:
    void show() {
        mPane = std::make_unique<CVTargetPane>(mBudget.document(), nullptr);
        mPane->show();
    }
    [[nodiscard]] QComboBox& box(const char* name) const { return *mPane->findChild<QComboBox*>(name); }
    [[nodiscard]] QLineEdit& field(const char* name) const { return *mPane->findChild<QLineEdit*>(name); }
    void choose(const char* name, const QString& text) const {
        const int index = box(name).findText(text);
        ASSERT_GE(index, 0) << text.toStdString();
        box(name).setCurrentIndex(index);
        emit box(name).activated(index);
    }

    BudgetBuilder mBudget;
    std::unique_ptr<CVTargetPane> mPane;
};

TEST_F(CVTargetPaneTest, GivesBackTheTargetsThatItShows) {
    mBudget.set("Checking", 1).set("Income", 2);
    show();
    CVImportTargets own;
    own.set = 1;
    own.incomeSet = 2;
    CVImportTargets same = own;
    same.income = Income::SameSet;
    same.incomeSet = 0;
    CVImportTargets none = same;
    none.income = Income::LeftOut;
    CVImportTargets made;
    made.newSet = "Card";
    made.newIncomeSet = "Pay";
    for (const CVImportTargets& targets : {own, same, none, made}) {
        mPane->setTargets(targets);
        EXPECT_EQ(mPane->targets(), targets);
        EXPECT_EQ(mPane->problem(), "");
    }
}

TEST_F(CVTargetPaneTest, ABudgetWithoutSetsOffersItsTransactions) {
    show();
    mPane->setTargets({});
    EXPECT_EQ(box("mOutSetBox").currentText(), "Your transactions");
    EXPECT_EQ(mPane->targets().set, 0U);
    EXPECT_TRUE(mPane->targets().newSet.isEmpty());
}

TEST_F(CVTargetPaneTest, ANewSetIsNamedBesideThePopUp) {
    mBudget.set("Checking", 1).set("Income", 2);
    show();
    mPane->setTargets({.set = 1, .incomeSet = 2});
    EXPECT_FALSE(field("mOutNameField").isVisible());
    choose("mOutSetBox", "New Set…");
    EXPECT_TRUE(field("mOutNameField").isVisible());
    field("mOutNameField").setText("  Card ");
    EXPECT_EQ(mPane->targets().newSet, "Card");
    EXPECT_EQ(mPane->nameOfSet(), "Card");
    EXPECT_EQ(mPane->problem(), "");
    field("mOutNameField").setText("");
    EXPECT_EQ(mPane->problem(), "Name the new set.");
    field("mOutNameField").setText("income");
    EXPECT_EQ(mPane->problem(), "There is a set “income” already.");
}

TEST_F(CVTargetPaneTest, MoneyInNeedsAnotherSetOrToBeNegative) {
    mBudget.set("Checking", 1).set("Income", 2);
    show();
    mPane->setTargets({.set = 1, .incomeSet = 1});
    EXPECT_TRUE(mPane->problem().startsWith("Choose another set for money in"));
    choose("mInSetBox", "The same set, as negative amounts");
    EXPECT_EQ(mPane->problem(), "");
    EXPECT_EQ(mPane->nameOfIncomeSet(), "Checking, money in");
    choose("mInSetBox", "Nowhere: left out");
    EXPECT_EQ(mPane->nameOfIncomeSet(), "nowhere");
}

} // namespace
