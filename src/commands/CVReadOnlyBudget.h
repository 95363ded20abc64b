#pragma once

#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentFile.h"

#include <QStringList>

class QTextStream;

/// A budget for the commands that show no window. The data file and the user's settings are read and never written;
/// changes of settings last as long as this object.
class CVReadOnlyBudget final {
public:
    CVReadOnlyBudget();

    /// From now on, a file that is XML without a budget cannot be read; otherwise it counts as an empty budget.
    void needBudget() { mNeedsBudget = true; }
    /// Reads a data file (absent: the user's own; "-": standard input) into the document. False after one line on
    /// `errors` that says why it could not be read.
    [[nodiscard]] bool read(const std::optional<QString>& dataFile, QTextStream& errors);
    /// Does the same, sorts the document and computes the bounds of its dates.
    [[nodiscard]] bool readAndSort(const std::optional<QString>& dataFile, QTextStream& errors);
    /// The file that was read and the user's own, which no output may replace.
    [[nodiscard]] QStringList dataFiles() const;

    /// What of the file was read only in part.
    [[nodiscard]] const CVPartlyRead& partlyRead() const { return mPartly; }
    [[nodiscard]] CVDocument& document() { return mDocument; }
    [[nodiscard]] QBUserDefaults& userDefaults() { return mUserDefaults; }

private:
    [[nodiscard]] CVLoadReport load(const QString& path);

    QBNotificationCenter mNotificationCenter;
    QBUserDefaults mUserDefaults;
    CVStandardFolders mFolders;
    CVDocument mDocument;
    QString mPath;
    CVPartlyRead mPartly;
    bool mNeedsBudget = false;
};
