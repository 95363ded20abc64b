#include "app/CVImportOperations.h"

#include "app/CVAppDelegate.h"
#include "files/CVFileSignature.h"
#include "format/QBLocale.h"
#include "importing/CVNotesFile.h"
#include "importing/budgets/CVReadBudgetFileKind.h"
#include "model/CVDocument.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVFilePanels.h"
#include "widgets/CVLeadToWaitingWindow.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "workspace/CVMainWindowController.h"
#include "workspace/controls/CVSaveStatus.h"

#include <QClipboard>
#include <QDateTime>
#include <QEventLoop>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMainWindow>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

/// How long the beginning of a file may take.
constexpr std::chrono::seconds kUntilRecognized(5);

QString importedNumber(std::size_t count) {
    return QBLocaleInForce().toString(static_cast<qulonglong>(count));
}

/// The first account that was not imported yet; absent when all were.
std::optional<QString> otherAccount(const QStringList& accounts, const QStringList& imported) {
    const auto other = std::find_if(accounts.begin(), accounts.end(),
                                    [&imported](const QString& account) { return !imported.contains(account); });
    return accounts.size() < 2 || other == accounts.end() ? std::nullopt : std::optional(*other);
}

} // namespace

CVImportOperations::CVImportOperations(CVAppDelegate& app, CVAlerts& alerts, CVFilePanels& panels)
    : mApp(app)
    , mAlerts(alerts)
    , mPanels(panels)
    , mBudgets(app, [this](CVImported imported) { add(std::move(imported), {}); }) {}

void CVImportOperations::setHelp(CVHelpOpener* help) {
    mHelp = help;
    mBudgets.setHelp(help);
}

bool CVImportOperations::mayImport() const {
    return !mApp.document().isReadOnly() && !CVLeadToWaitingWindow();
}

void CVImportOperations::importChosenFile() {
    if (!mayImport())
        return;
    if (const auto path = CVImportWindow::chooseStatement(mPanels, *mApp.mainWindow()->window()))
        importFile(*path);
}

void CVImportOperations::importFile(const QString& path) {
    if (!mayImport())
        return;
    const auto recognized = recognize(path);
    const QString name = QFileInfo(path).fileName();
    // Other events were handled meanwhile.
    if (!mayImport())
        return;
    if (!recognized)
        mApp.mainWindow()->saveStatus().remark(tr("“%1” does not answer, so nothing was imported.").arg(name));
    else if (recognized->isOwn)
        mApp.mainWindow()->saveStatus().remark(
            tr("“%1” is your data file, which you are looking at. There is nothing to import.").arg(name));
    else if (recognized->kind == CVBudgetFileKind::None)
        show({path, {}});
    else
        mBudgets.offer(path);
}

/// On a thread, because the disk may not answer; the user waits for the first bytes.
std::optional<CVImportOperations::Recognized> CVImportOperations::recognize(const QString& path) {
    std::optional<Recognized> recognized;
    QEventLoop waiting;
    QTimer::singleShot(kUntilRecognized, &waiting, &QEventLoop::quit);
    mRecognizing.start([&, path, own = mApp.document().dataFiles()](const CVLatestWork::IsWanted&) {
        const Recognized found{
            CVReadBudgetFileKind(path),
            std::any_of(own.begin(), own.end(), [&path](const QString& file) { return CVIsSameFile(path, file); })};
        return [&recognized, &waiting, found] {
            recognized = found;
            waiting.quit();
        };
    });
    waiting.exec(QEventLoop::ExcludeUserInputEvents);
    mRecognizing.cancel();
    return recognized;
}

void CVImportOperations::importClipboard() {
    const QString rows = QGuiApplication::clipboard()->text();
    if (rows.trimmed().isEmpty())
        mApp.mainWindow()->saveStatus().remark(
            tr("There are no rows on the clipboard. Copy some in the other program first."));
    else if (mayImport())
        show({{}, rows.toUtf8()});
}

/// Each account of a file is a statement of its own, with a set of its own: after one the next is shown, until the user
/// cancels.
void CVImportOperations::show(const CVImportWindow::Source& source) {
    QStringList imported;
    for (auto next = std::optional(source); next;) {
        QWidget& main = *mApp.mainWindow()->window();
        CVCommitOpenEditor(main.focusWidget());
        CVImportWindow window(mApp.document(), mPanels, mAlerts, mHelp, &main);
        window.setIsStatement([this](const QString& path) {
            const auto recognized = recognize(path);
            return recognized && recognized->kind == CVBudgetFileKind::None && !recognized->isOwn;
        });
        window.read(*next);
        next.reset();
        if (window.exec() == QDialog::Accepted) {
            const CVImportWindow::Order order = window.order();
            if (!carryOut(order))
                return;
            imported.append(order.statement->mapping.account.value_or(QString()));
            if (const auto account = otherAccount(order.statement->accounts, imported))
                next = CVImportWindow::Source{window.source().path, window.source().copied, account, mNotes};
        } else if (window.otherFile()) {
            importFile(*window.otherFile());
        }
    }
}

bool CVImportOperations::carryOut(const CVImportWindow::Order& order) {
    CVImported imported = CVImportIntoBudget(mApp.document(), order.lines, order.targets);
    if (!imported.problem.isEmpty()) {
        mAlerts.run(mApp.mainWindow()->window(), {tr("Nothing was imported"), imported.problem, tr("OK")});
        return false;
    }
    learn(order, imported);
    add(std::move(imported), order.notes);
    return true;
}

void CVImportOperations::add(CVImported imported, CVImportNotes notesBefore) {
    mApp.mainWindow()->getStarted();
    const std::size_t count = imported.entries.size();
    // Sets and categories alone are no import of transactions; their window says that they came in.
    if (count == 0)
        return;
    tell(count == 1 ? tr("1 transaction imported")
                    : tr("%1 transactions imported", nullptr, static_cast<int>(count)).arg(importedNumber(count)));
    mImports.push_back({std::move(imported), std::move(notesBefore)});
    mApp.mainWindow()->setCanTakeBackImport(true);
}

void CVImportOperations::tell(const QString& remark) {
    mApp.mainWindow()->saveStatus().remark(remark, CVSaveStatus::Offer::TakeBack);
}

void CVImportOperations::learn(const CVImportWindow::Order& order, const CVImported& imported) {
    CVImportNotes notes = order.notes;
    const QByteArray& header = order.statement->headerDigest;
    notes.noteTargets(mApp.document(), header, imported.targets);
    notes.noteMapping(header, notes.contents().mappings.value(header).name, order.statement->lasting);
    notes.noteLines(imported.account, imported.targets, order.lines);
    write(notes);
}

void CVImportOperations::write(const CVImportNotes& notes) {
    mNotes = notes;
    const QString dataFile = mApp.document().dataFiles().value(0);
    if (dataFile.isEmpty())
        return;
    mWriting.start([this, notes, dataFile](const CVLatestWork::IsWanted&) -> CVLatestWork::Told {
        const auto written = CVNotesFile(dataFile).write(notes, QDateTime::currentDateTime());
        if (written.ok() && written.kept.isEmpty())
            return {};
        const QString remark =
            written.ok() ? tr("What former statements taught could not be read. It is kept as “%1”.")
                               .arg(QFileInfo(written.kept).fileName())
                         : tr("What this statement taught could not be kept for the next one: %1").arg(written.error);
        return [this, remark] {
            // Beside the way back, so that the remark takes nothing away.
            mApp.mainWindow()->saveStatus().remark(remark, mImports.empty() ? CVSaveStatus::Offer::Nothing
                                                                            : CVSaveStatus::Offer::TakeBack);
        };
    });
}

std::optional<CVEditedTransactions> CVImportOperations::askAboutEdited(int count) {
    const CVAlert question{count == 1 ? tr("1 of the imported transactions was edited since")
                                      : tr("%1 of the imported transactions were edited since", nullptr, count)
                                            .arg(importedNumber(static_cast<std::size_t>(count))),
                           tr("Take back all, or keep what was edited? The state before becomes an earlier version."),
                           tr("Keep Edited"), tr("Cancel"), tr("Take Back All")};
    switch (mAlerts.run(mApp.mainWindow()->window(), question)) {
    case CVAlert::kDefault:
        return CVEditedTransactions::Stay;
    case CVAlert::kOther:
        return CVEditedTransactions::Go;
    default:
        return std::nullopt;
    }
}

void CVImportOperations::takeBack() {
    if (mImports.empty() || !mayImport())
        return;
    CVCommitOpenEditor(mApp.mainWindow()->window()->focusWidget());
    const CVImportState state = CVStateOfImport(mApp.document(), mImports.back().imported);
    auto edited = std::optional(CVEditedTransactions::Stay);
    if (state.edited > 0)
        edited = askAboutEdited(state.edited);
    // Another budget may have been opened while the question was shown.
    if (!edited || mImports.empty())
        return;
    const auto [imported, notesBefore] = std::move(mImports.back());
    mImports.pop_back();
    const CVImportLines lines = CVTakeBackImport(mApp.document(), imported, *edited);
    mApp.mainWindow()->getStarted();
    mApp.mainWindow()->setCanTakeBackImport(!mImports.empty());
    mApp.mainWindow()->saveStatus().remark(
        lines.empty()       ? tr("Nothing of this import was left in your budget")
        : lines.size() == 1 ? tr("1 transaction taken back")
                            : tr("%1 transactions taken back", nullptr, static_cast<int>(lines.size()))
                                  .arg(importedNumber(lines.size())));
    if (imported.from == CVImported::From::Budget)
        return;
    // What was edited has stayed, and with it what it taught.
    const bool hasStayed = state.edited > 0 && *edited == CVEditedTransactions::Stay;
    if (hasStayed)
        mNotes.forgetNumbers(imported.account, lines);
    write(hasStayed ? CVImportNotes(mNotes) : notesBefore);
}

void CVImportOperations::forget() {
    mImports.clear();
    mNotes = {};
    mRecognizing.cancel();
}
