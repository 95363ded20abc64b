#include "importing/panel/CVImportReader.h"

#include "importing/CVNotesFile.h"
#include "importing/CVPrepareImport.h"
#include "importing/CVReadAsLastTime.h"
#include "importing/CVReadStatement.h"
#include "importing/panel/CVReadStatementFile.h"

#include <tuple>
#include <utility>

CVImportReader::CVImportReader(QString dataFile) : mDataFile(std::move(dataFile)) {}

CVImportReader::~CVImportReader() = default;

void CVImportReader::read(const Source& source) {
    mPermille = 0;
    mWork.start([this, source](const IsWanted& isWanted) -> CVLatestWork::Told {
        mBytes = source.copied;
        QString problem;
        if (!source.path.isEmpty())
            std::tie(mBytes, problem) = CVReadStatementFile(source.path, isWanted);
        if (source.notes)
            mNotes = *source.notes;
        else if (!mDataFile.isEmpty())
            mNotes = CVNotesFile(mDataFile).read().notes;
        if (problem.isEmpty())
            return tell(findings(source, isWanted));
        CVStatement unread;
        unread.problem = problem;
        return tell({std::make_shared<CVStatement>(std::move(unread)), {}, false, mNotes});
    });
}

CVStatementFindings CVImportReader::findings(const Source& source, const IsWanted& isWanted) {
    CVStatementMapping given;
    given.account = source.account;
    CVStatementAsLastTime read = CVReadAsLastTime(mBytes, given, mNotes, stopUnlessWanted(isWanted));
    return {std::make_shared<CVStatement>(std::move(read.statement)), read.known, read.isAsLastTime, mNotes};
}

CVStopRequested CVImportReader::stopUnlessWanted(const IsWanted& isWanted) {
    return [this, &isWanted](int permille) {
        mPermille = permille;
        return !isWanted();
    };
}

void CVImportReader::readAs(const CVStatementMapping& known) {
    mPermille = 0;
    mWork.start([this, known](const IsWanted& isWanted) {
        CVStatement read = CVReadStatement(mBytes, known, stopUnlessWanted(isWanted));
        return tell({std::make_shared<CVStatement>(std::move(read)), known, false, mNotes});
    });
}

CVLatestWork::Told CVImportReader::tell(CVStatementFindings findings) {
    return [this, findings = std::move(findings)] { emit statementRead(findings); };
}

void CVImportReader::prepare(std::shared_ptr<const CVRecordedLines> recorded,
                             std::shared_ptr<const CVStatement> statement, const CVImportTargets& targets) {
    mPermille = 0;
    mWork.start([this, recorded = std::move(recorded), statement = std::move(statement),
                 targets](const IsWanted& isWanted) -> CVLatestWork::Told {
        auto prepared = std::make_shared<CVPreparedLines>();
        prepared->lines = preparing(recorded).lines(statement->lines, targets, [this, &isWanted](int permille) {
            mPermille = permille;
            return !isWanted();
        });
        prepared->keys = CVImportRows::keysOf(prepared->lines);
        return [this, prepared] { emit linesPrepared(*prepared); };
    });
}

void CVImportReader::find(std::shared_ptr<const CVRecordedLines> recorded, CVImportLines lines,
                          const CVImportTargets& targets) {
    mPermille = 0;
    mWork.start([this, recorded = std::move(recorded), lines = std::move(lines),
                 targets](const IsWanted& /*isWanted*/) -> CVLatestWork::Told {
        auto found = std::make_shared<CVImportLines>(lines);
        preparing(recorded).findRecorded(*found, targets);
        return [this, found] { emit linesFound(*found); };
    });
}

const CVPrepareImport& CVImportReader::preparing(const std::shared_ptr<const CVRecordedLines>& recorded) {
    if (!mPrepare)
        mPrepare = std::make_unique<CVPrepareImport>(recorded, mNotes);
    return *mPrepare;
}
