#pragma once

#include "differences/CVTransactionContent.h"
#include "importing/CVImportLine.h"
#include "importing/CVImportNotes.h"
#include "importing/CVImportTargets.h"
#include "model/CVCollections.h"

#include <QByteArray>
#include <QString>

#include <span>
#include <vector>

class CVDocument;

/// What an import has brought into the budget, by which it can be taken back.
struct CVImported {
    /// A transaction as it was imported.
    struct Entry {
        std::shared_ptr<CVTransaction> transaction;
        CVTransactionContent content;
        CVImportLine line;
    };
    /// A category or a set that was made for it.
    struct Made {
        quint32 id = 0;
        /// Its element text.
        QByteArray text = {};
    };

    /// What was imported: only statements teach something for the next one.
    enum class From : bool { Statement, Budget };

    From from = From::Statement;
    /// Why nothing was imported, one sentence; empty when all was.
    QString problem = {};
    /// In the order of the lines.
    std::vector<Entry> entries = {};
    std::vector<Made> categories = {};
    std::vector<Made> sets = {};
    /// With the IDs of the sets, also of those that were made.
    CVImportTargets targets = {};
    /// The set of the money out, by which the notes know the account.
    CVImportNotes::NotedSet account = {};
    /// The set that was shown before.
    quint32 formerSet = 0;
    /// Of a budget: how many lines have come in, sets and categories too.
    int lines = 0;
};

/// Records the checked lines as one change: makes the categories and sets that are missing, asks for an earlier version
/// for the reason `Import`, announces all once and saves once. All or nothing: nothing happens where a checked line has
/// no day or no category, where a set is gone, where the budget is only looked at, and where no line is checked.
[[nodiscard]] CVImported CVImportIntoBudget(CVDocument& document, std::span<const CVImportLine> lines,
                                            const CVImportTargets& targets);
