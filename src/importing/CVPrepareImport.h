#pragma once

#include "importing/CVImportLine.h"
#include "importing/CVImportNotes.h"
#include "importing/CVImportTargets.h"
#include "importing/CVReadStatement.h"
#include "importing/CVRecordedLines.h"

#include <memory>
#include <vector>

/// Makes the lines of a statement what is to be recorded. Made on the thread of the budget, whose present state it
/// notes at once in a few milliseconds; from then on any one thread may use it.
class CVPrepareImport final {
public:
    CVPrepareImport(const CVDocument& document, CVImportNotes notes);
    /// May be made on any thread.
    CVPrepareImport(std::shared_ptr<const CVRecordedLines> recorded, CVImportNotes notes);

    /// A line for each line, in their order: on the side and with the sign that the targets give it, with the category
    /// that is remembered, and with a note. What is recorded already, was left out before or cannot be read is not
    /// checked. Empty when it was stopped.
    [[nodiscard]] CVImportLines lines(const std::vector<CVStatementLine>& statement, const CVImportTargets& targets,
                                      const CVStopRequested& stop = {}) const;

    /// Looks again for what is recorded already, where lines have another day, amount or side than they were prepared
    /// with. Changes nothing of them but the notes, and whether they are checked.
    void findRecorded(CVImportLines& lines, const CVImportTargets& targets) const;

    [[nodiscard]] const CVCategoryMemory& memory() const { return *mMemory; }
    [[nodiscard]] const CVImportNotes& notes() const { return mNotes; }

private:
    /// What a category is taken from in the first place.
    enum class Source { Memory, Statement };

    [[nodiscard]] CVImportLine readable(const CVStatementLine& line, const CVImportTargets& targets,
                                        Source source) const;
    void propose(CVImportLine& line, const QString& categoryInStatement, Source source) const;
    void noteWhatIsMissing(CVImportLine& line, const CVImportTargets& targets) const;
    void noteRecorded(CVImportLines& lines, const CVImportTargets& targets) const;
    [[nodiscard]] std::vector<bool> knownNumbers(const CVImportLines& lines, const CVImportTargets& targets) const;
    void noteFound(CVImportLine& line, const std::vector<std::size_t>& recorded) const;
    [[nodiscard]] std::optional<quint32> setOf(bool isIncome, const CVImportTargets& targets) const;
    [[nodiscard]] CVImportNotes::NotedSet accountOf(const CVImportTargets& targets) const;

    std::shared_ptr<const CVRecordedLines> mRecorded;
    std::unique_ptr<CVCategoryMemory> mMemory;
    CVImportNotes mNotes;
};
