#pragma once

#include "importing/budgets/CVFitToBudget.h"
#include "model/CVDetachedDocument.h"
#include "storage/CVPartlyRead.h"

#include <QCoreApplication>

#include <memory>

class CVDocumentReader;
class QIODevice;

/// A budget that is to be imported, read from a file that stays as it is.
struct CVOtherBudget {
    Q_DECLARE_TR_FUNCTIONS(CVOtherBudget)

public:
    /// Null when there is a problem, or when the reading was cancelled.
    std::shared_ptr<CVDetachedDocument> budget = nullptr;
    /// Why it cannot be read, as words or a sentence that follow a colon.
    QString problem = {};
    /// What of the file was read only in part.
    CVPartlyRead partly = {};
    /// What was recognised, in one line: "A Corvella budget, 2 sets, 1,204 transactions, 12 March to 9 April".
    QString summary = {};

    /// What its categories plan.
    CVPlansOfOther plans = CVPlansOfOther::Known;

    [[nodiscard]] static CVOtherBudget read(CVDocumentReader& reader, const QString& path);
    /// Reads an open file or pipe from its position to its end.
    [[nodiscard]] static CVOtherBudget read(CVDocumentReader& reader, QIODevice& file);
    [[nodiscard]] static QString tooLittleMemory() { return tr("there is not enough memory"); }

    /// Says what was read only in part, in a sentence without a full stop; empty where all was read whole.
    [[nodiscard]] QString partlyText() const;
};
