#pragma once

#include "base/CVLatestWork.h"
#include "importing/CVImportLine.h"
#include "importing/CVImportNotes.h"
#include "importing/CVImportTargets.h"
#include "importing/panel/CVImportRows.h"
#include "importing/statements/CVStatement.h"
#include "importing/statements/CVStopRequested.h"

#include <atomic>
#include <memory>

class CVPrepareImport;
class CVRecordedLines;

/// What was found in a statement.
struct CVStatementFindings {
    std::shared_ptr<const CVStatement> statement;
    /// What the statement was asked to be read as.
    CVStatementMapping known;
    /// Whether it was read as the last statement with the same header.
    bool isAsLastTime = false;
    /// What is remembered of former imports.
    CVImportNotes notes;
};

/// The lines of a statement as they will be recorded, and the keys of their payees.
struct CVPreparedLines {
    CVImportLines lines;
    CVImportRows::PayeeKeys keys;
};

/// Reads a statement and prepares its lines on a thread of its own. Each call cancels the former work. Used from the
/// main thread.
class CVImportReader final : public QObject {
    Q_OBJECT

public:
    /// Where a statement comes from.
    struct Source {
        /// The file; empty for rows that were copied.
        QString path = {};
        /// The rows that were copied in another program, as UTF-8.
        QByteArray copied = {};
        /// Of a file with several accounts the one to read; absent: it is asked for.
        std::optional<QString> account = {};
        /// What is remembered of former imports; absent: what the notes beside the data file say.
        std::optional<CVImportNotes> notes = {};
    };

    /// The notes beside the data file are read too.
    explicit CVImportReader(QString dataFile);
    ~CVImportReader() override;

    void read(const Source& source);
    /// Reads the same statement as `known` says.
    void readAs(const CVStatementMapping& known);
    /// Prepares the lines of a statement that was read, against what the budget has recorded.
    void prepare(std::shared_ptr<const CVRecordedLines> recorded, std::shared_ptr<const CVStatement> statement,
                 const CVImportTargets& targets);

    /// Looks again for what is recorded of lines that were prepared and then changed.
    void find(std::shared_ptr<const CVRecordedLines> recorded, CVImportLines lines, const CVImportTargets& targets);

    /// How far the work is, from 0 to 1000.
    [[nodiscard]] int permille() const { return mPermille; }

signals:
    /// These are always emitted from the event loop.
    void statementRead(const CVStatementFindings& findings);
    void linesPrepared(const CVPreparedLines& prepared);
    void linesFound(const CVImportLines& lines);

private:
    using IsWanted = CVLatestWork::IsWanted;

    /// These run on the thread.
    [[nodiscard]] CVStatementFindings findings(const Source& source, const IsWanted& isWanted);
    [[nodiscard]] CVStopRequested stopUnlessWanted(const IsWanted& isWanted);
    [[nodiscard]] CVLatestWork::Told tell(CVStatementFindings findings);
    [[nodiscard]] const CVPrepareImport& preparing(const std::shared_ptr<const CVRecordedLines>& recorded);

    QString mDataFile;
    std::atomic<int> mPermille = 0;

    /// Used on the thread alone.
    QByteArray mBytes;
    CVImportNotes mNotes;
    /// Null before lines are first prepared; of the statement's source.
    std::unique_ptr<CVPrepareImport> mPrepare;

    /// Declared last, so that all other members exist as long as the thread runs.
    CVLatestWork mWork;
};
