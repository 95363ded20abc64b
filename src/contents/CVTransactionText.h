#pragma once

#include "format/QBDateFormatter.h"
#include "format/QBMoneyFormatter.h"

#include <QCoreApplication>
#include <QString>

class CVTransaction;

/// Writes the fields of a transaction for the screen, for paper and for other programs. Dates and amounts are in the
/// locale that was in force when the object was made. The columns are those of `CVTransactionColumns`.
class CVTransactionText final {
    Q_DECLARE_TR_FUNCTIONS(CVTransactionText)

public:
    /// The heading of a column, in the user's language.
    [[nodiscard]] static QString title(int column);

    /// Empty for a missing date or text. A flag is "Yes" or "No", in the user's language.
    [[nodiscard]] QString string(const CVTransaction& transaction, int column) const;

private:
    QBDateFormatter mDateFormatter;
    QBMoneyFormatter mMoneyFormatter;
};
