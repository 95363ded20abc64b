#pragma once

#include "importing/statements/CVDayOrders.h"
#include "importing/statements/CVStatementQuestion.h"

#include <QString>
#include <QStringList>

#include <vector>

/// The questions that statements of several kinds leave open. `known` is the mapping that was asked for.

/// A text that can be read in several ways.
struct CVOpenText {
    /// The line of the file in which it stands, from 1.
    int line = 0;
    QString text = {};
};
[[nodiscard]] CVStatementQuestion CVAskForDayOrder(const CVOpenText& day, const CVDayOrders& orders,
                                                   const CVStatementMapping& known);
[[nodiscard]] CVStatementQuestion CVAskForDecimalMark(const CVOpenText& amount, QChar likelier,
                                                      const CVStatementMapping& known);

/// An account of a file with several.
struct CVAccountOfFile {
    /// As the file names it.
    QString name = {};
    int lines = 0;
};
[[nodiscard]] CVStatementQuestion CVAskForAccount(const std::vector<CVAccountOfFile>& accounts,
                                                  const CVStatementMapping& known);
[[nodiscard]] QStringList CVNamesOfAccounts(const std::vector<CVAccountOfFile>& accounts);
/// Why nothing can be read of an account that is not in the file.
[[nodiscard]] QString CVMissingAccount(const std::vector<CVAccountOfFile>& accounts, const QString& name);

/// "1, 2 or 3"
[[nodiscard]] QString CVJoinedByOr(const QStringList& texts);
