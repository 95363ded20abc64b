#pragma once

#include "app/CVLockMessages.h"

#include <QObject>

#include <memory>
#include <optional>

class CVAppDelegate;
class CVDocumentFile;
class CVLockKeeper;
class CVMainWindowController;

/// Sees to it that one program alone changes a budget: takes the lock of a data file before the file is read or
/// replaced, asks the user what to do while another program has it, and lets the lock go with the budget. A budget
/// without the lock is read-only, except where no lock can be made. References the application, the data file and the
/// alerts, which outlive it.
class CVLockOperations final : public QObject {
    Q_OBJECT

public:
    using Asked = CVLockMessages::Asked;

    CVLockOperations(CVAppDelegate& app, CVDocumentFile& file, CVAlerts& alerts);
    ~CVLockOperations() override;

    /// Takes the lock of the data file at `path` besides the present one, or asks the user in `asker`, which may be
    /// null. False when the user leaves that file alone; then nothing has changed.
    [[nodiscard]] bool claim(const QString& path, Asked asked, QWidget* asker);
    /// What is read from now on is read-only or not, as was claimed.
    void beginReading();
    /// The claimed budget is the present one: lets the former lock go.
    void adopt();
    /// The former budget stays: lets the claimed lock go.
    void abandon();
    /// Does one of both: the settings name the data file that is used.
    void settle();

    /// Says in a new window why nothing can be changed, if that is so.
    void showIn(CVMainWindowController& window);
    /// A save has ended: a folder that was made for it can hold a lock, and a lock that is lost is to be noticed now.
    void saveFinished() const;
    /// Takes the lock if it is free by now, reads the budget again and lets it be changed.
    void tryToEdit();

private:
    struct Claim {
        /// The lock's path; empty when there is no data file.
        QString path;
        QString dataFile;
        /// Null when the budget is read-only.
        std::unique_ptr<CVLockKeeper> keeper;
        /// Who has it; absent when that is unknown.
        std::optional<CVLockHolder> holder;

        [[nodiscard]] bool isReadOnly() const { return !path.isEmpty() && !keeper; }
    };

    [[nodiscard]] bool ask(CVBudgetLock& lock, CVBudgetLock::Attempt& attempt, const QString& dataFile, Asked asked,
                           QWidget* asker);
    void prepare(CVBudgetLock lock, const CVBudgetLock::Attempt& attempt, const QString& dataFile);
    void tellLoss(const CVLockHolder& holder);

    CVAppDelegate& mApp;
    CVDocumentFile& mFile;
    CVAlerts& mAlerts;
    Claim mPresent;
    std::optional<Claim> mNext;
};
