#pragma once

#include "importing/statements/CVStatementLine.h"
#include "importing/statements/CVStatementMapping.h"
#include "importing/statements/CVStatementQuestion.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

/// What is read of a file that a bank hands out.
struct CVStatement {
    /// A statement of which nothing can be read.
    [[nodiscard]] static CVStatement ofProblem(const QString& problem, const QString& option = {}) {
        CVStatement statement;
        statement.problem = problem;
        statement.problemOption = option;
        return statement;
    }

    /// Why nothing can be read, one sentence; empty otherwise.
    QString problem = {};
    /// As the command line takes it, what mends the problem: "--date N"; empty where nothing does.
    QString problemOption = {};
    /// With a problem, what was found beside it; empty where no choice would help. Complete where there is neither a
    /// problem nor a question, but for what the texts leave open because it makes no difference here: the order of days
    /// such as 3/3, the decimal mark of whole numbers, the sign of amounts that have none.
    CVStatementMapping mapping = {};
    /// What of the mapping holds for later statements of the same kind: what was given, and what the texts prove.
    CVStatementMapping lasting = {};
    /// To be answered before anything is imported.
    std::vector<CVStatementQuestion> questions = {};
    /// As read with the mapping; where there are questions, with the first answer of each.
    std::vector<CVStatementLine> lines = {};
    /// Of the header; empty without one.
    QStringList headings = {};
    /// Of the accounts of the file those that have lines, as `CVStatementMapping::account` names them.
    QStringList accounts = {};
    /// Where there is a problem that another choice of columns may solve, the first rows as they stand.
    std::vector<QStringList> unreadRows = {};
    /// What was recognized, one line: "Semicolons, Windows-1252, 148 lines, 12 March to 9 April"
    QString summary = {};
    /// What the balance column says against the sums; empty when they agree or there is none.
    QString balanceRemark = {};
    /// By which a mapping and where the lines went are remembered: of the header, or of the account, else of how many
    /// columns there are. Empty where nothing can be read.
    QByteArray headerDigest = {};
    /// Whether statements of other banks may have the same digest, because there is no header.
    bool isDigestCommon = false;
};
