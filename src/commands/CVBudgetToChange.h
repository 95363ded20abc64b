#pragma once

#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "lock/CVRunningLock.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentFile.h"

#include <memory>
#include <optional>

class CVLockKeeper;
class QTextStream;

/// A budget that a command changes: the data file is locked, read and saved as the program does it, and stays locked as
/// long as this object. Changes of settings last as long.
class CVBudgetToChange final {
public:
    CVBudgetToChange();
    ~CVBudgetToChange();
    CVBudgetToChange(const CVBudgetToChange&) = delete;
    CVBudgetToChange& operator=(const CVBudgetToChange&) = delete;

    /// Locks and reads a data file. False after one line on `errors` that says why it cannot be changed, for instance
    /// because a program has it open.
    [[nodiscard]] bool open(const QString& path, QTextStream& errors);
    /// Waits for the save of the document. False after one line on `errors` when it failed: the file is as it was.
    [[nodiscard]] bool waitUntilSaved(QTextStream& errors);

    [[nodiscard]] CVDocument& document() { return mDocument; }

private:
    [[nodiscard]] bool lock(const QString& path, QTextStream& errors);
    [[nodiscard]] bool isOwn(const QString& path) const;

    QBNotificationCenter mNotificationCenter;
    QBUserDefaults mUserDefaults;
    CVStandardFolders mFolders;
    std::optional<CVRunningLock> mRunning;
    std::unique_ptr<CVLockKeeper> mKeeper;
    CVDocumentFile mFile;
    CVDocument mDocument;
};
