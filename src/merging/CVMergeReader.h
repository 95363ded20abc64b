#pragma once

#include "comparing/CVReadingThread.h"
#include "differences/CVBudgetDifferences.h"
#include "differences/CVMergeBudgets.h"
#include "merging/CVMergeSource.h"
#include "model/CVDetachedDocument.h"

/// A copy of the present budget and what it becomes with all changes of another file, kept together because the
/// differences refer to the records of both. Read only: threads share it.
struct CVMergeComparison {
    std::shared_ptr<CVDetachedDocument> ours;
    CVMergedBudget merged;
    /// What bringing all in would do: `before` is the merged budget, `after` ours.
    CVBudgetDifferences differences;
};

/// What became known of another file.
struct CVMergeFindings {
    QString path;
    /// Why it cannot be read; empty when it was read.
    QString problem = {};
    /// Of an import: what was recognised, and what of it was read only in part, each in one line.
    QString summary = {};
    QString partly = {};
    /// Null when there is a problem.
    std::shared_ptr<const CVMergeComparison> comparison = nullptr;
};

/// Reads another file on a thread of its own and merges it with the present budget, of which it gets the text. Used
/// from the main thread.
class CVMergeReader final : public QObject {
    Q_OBJECT

public:
    /// Begins anew: reads the file and merges it.
    void read(CVDocumentText present, CVMergeSource source);
    /// Begins anew: reads a file that is imported, whatever it has in common with the budget.
    void readForImport(CVDocumentText present, QString path);
    /// Begins anew: merges the rest of a former comparison of which the present budget may have taken over a part.
    void readRest(CVDocumentText present, const CVMergeFindings& former);

signals:
    /// Always emitted from the event loop.
    void found(const CVMergeFindings& findings);

private:
    template <typename Compare>
    void start(Compare compare);

    CVReadingThread mThread;
};
