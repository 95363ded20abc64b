#pragma once

#include "commands/CVImportRequest.h"
#include "importing/budgets/CVBudgetFileKind.h"

#include <QString>

struct CVMergedBudget;
struct CVOtherBudget;
class CVDocument;
class QFile;
class QTextStream;

/// The import of another budget, or of exported transactions, by a command. References all that it is made of. The
/// results are exit statuses: 1 after one line on the errors, then nothing is recorded.
class CVBudgetImportRun final {
public:
    /// `file` is open and at its beginning; it is only read.
    CVBudgetImportRun(const CVImportRequest& request, QFile& file, QTextStream& errors)
        : mRequest(request)
        , mFile(file)
        , mErrors(errors) {}

    /// Why the options do not fit such a file; empty when they do.
    [[nodiscard]] QString refusal(CVBudgetFileKind kind) const;
    /// Writes the transactions that would come in as comma-separated text.
    [[nodiscard]] int dryRun();
    /// Brings in all that the file has and the data file has not, and writes how many transactions that is.
    [[nodiscard]] int import();

private:
    [[nodiscard]] QString named() const;
    [[nodiscard]] bool isOwn(const QString& dataFile) const;
    /// Without a budget after one line on the errors.
    [[nodiscard]] CVOtherBudget read();

    const CVImportRequest& mRequest;
    QFile& mFile;
    QTextStream& mErrors;
};
