#pragma once

#include "ShellFixture.h"
#include "lock/CVBudgetLock.h"
#include "model/CVTransactionSet.h"
#include "widgets/tables/CVTableView.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>

#include <unistd.h>

/// A budget that another program has open.
class ReadOnlyFixture : public ShellFixture {
protected:
    /// Makes a budget of three transactions in two sets, and quits.
    void makeBudget() {
        start();
        for (const char* const name : {"Checking", "Savings"}) {
            const auto set = std::make_shared<CVTransactionSet>();
            set->setDocument(&document());
            set->setTransactionSetName(name);
            set->setUniqueID(document().getUniqueTransactionSetID());
            document().transactionSets().push_back(set);
        }
        document().setCurrentTransactionSet(document().transactionSets().front()->uniqueID());
        for (const char* const payee : {"Market", "Baker", "Butcher"})
            record(12, payee, "Food");
        quit();
    }

    [[nodiscard]] QString dataFile() const {
        return mHome.folders().applicationSupport + "/Quenby Labs/Corvella/Corvella Data.corvella";
    }
    [[nodiscard]] QString lockPath() const { return CVBudgetLock(dataFile()).path(); }

    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(const QString& path, const QByteArray& bytes) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    /// Anna opens the budget in that place on another computer.
    static void annaOpens(const QString& place) {
        write(CVBudgetLock(place).path(),
              CVLockHolder{"desk", "anna", "another machine", "another start", 7, 7, "pid:[7]", "annas"}.render());
    }
    void annaQuits() const { ASSERT_TRUE(QFile::remove(lockPath())); }

    void startReadOnly() {
        makeBudget();
        annaOpens(dataFile());
        start();
        ASSERT_TRUE(mDelegate->isReadOnly());
    }

    [[nodiscard]] bool isOwnLock(const QString& place) const {
        const auto holder = CVLockHolder::parse(bytesOf(CVBudgetLock(place).path()));
        return holder && holder->process == ::getpid();
    }
    [[nodiscard]] QString why() const { return window().findChild<QLabel*>("mReadOnlyText")->text(); }
    [[nodiscard]] QPushButton& tryAgainButton() const { return *window().findChild<QPushButton*>("mEditAgainButton"); }
    [[nodiscard]] CVTableView& list() const { return *window().findChild<CVTableView*>("mTransactionTable"); }
    [[nodiscard]] QString remark() const { return window().findChild<QLabel*>("mRemark")->text(); }
    [[nodiscard]] QStringList names() const {
        return QDir(QFileInfo(dataFile()).path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] QStringList enabledCommands() const {
        QStringList enabled;
        for (const QAction* const action : window().findChildren<QAction*>()) {
            if (action->isEnabled() && !action->text().isEmpty())
                enabled.append(action->text().remove('&'));
        }
        return enabled;
    }
};
