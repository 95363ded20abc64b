#pragma once

#include "kit/BudgetBuilder.h"
#include "kit/CountingSaver.h"
#include "kit/FixedToday.h"
#include "kit/ScratchHome.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVVersionFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

/// A budget with a data file and earlier versions in a scratch folder; today is 7 March 2014.
class HistoryFixture : public testing::Test {
protected:
    static constexpr quint32 kFood = 1;

    HistoryFixture() {
        fill(mBudget);
        mSaver.setDataFiles({mDataFile});
        mBudget.document().setSaver(&mSaver);
        write(mDataFile, bytesOf(mBudget));
    }

    /// Three purchases of food.
    static void fill(BudgetBuilder& budget) {
        budget.category("Food", kFood).lastID(kFood);
        purchase(budget, 1, 10, "Market");
        purchase(budget, 2, 20, "Baker");
        purchase(budget, 3, 30, "Butcher");
    }

    static void purchase(BudgetBuilder& budget, int dayOfMarch, double amount, const QString& payTo) {
        budget.transaction({.date = day(2014, 3, dayOfMarch), .amount = amount, .payTo = payTo, .categoryID = kFood});
    }

    [[nodiscard]] static QByteArray bytesOf(BudgetBuilder& budget) {
        return CVDocumentXMLRepresentation(budget.document()).joined();
    }

    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    /// Keeps bytes as a version and answers its path.
    QString keep(const QByteArray& bytes, CVVersionReason reason, const QDateTime& when) {
        const QString source = mHome.path("source");
        write(source, bytes);
        const auto kept = CVVersionFolder(mDataFile).keepCopy(source, reason, when);
        EXPECT_TRUE(kept.ok()) << kept.error.toStdString();
        return kept.path;
    }

    /// The present budget as a version, with further purchases that are gone now.
    QString keepWith(int purchases, CVVersionReason reason, const QDateTime& when) {
        BudgetBuilder version;
        fill(version);
        for (int i = 0; i < purchases; ++i)
            purchase(version, 4, 100 + i, "Gone");
        return keep(bytesOf(version), reason, when);
    }

    [[nodiscard]] static QDateTime at(int dayOfMarch, int hour, int minute = 0) {
        return QDateTime(QDate(2014, 3, dayOfMarch), QTime(hour, minute));
    }

    FixedToday mToday{day(2014, 3, 7)};
    ScratchHome mHome;
    QString mDataFile = mHome.path("Corvella Data.corvella");
    CountingSaver mSaver;
    BudgetBuilder mBudget;
};
