#include "importing/panel/CVImportWindow.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "format/QBLocale.h"
#include "importing/CVRecordedLines.h"
#include "importing/panel/CVImportLinePane.h"
#include "importing/panel/CVQuestionPane.h"
#include "importing/panel/CVStatementPane.h"
#include "importing/panel/CVTargetPane.h"
#include "model/CVDocument.h"
#include "model/CVTransactionSet.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVElidedLabel.h"
#include "widgets/CVFilePanels.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/CVScrollArea.h"
#include "widgets/CVWindowFrame.h"

#include <QAccessible>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QShortcut>

#include <chrono>
#include <utility>

namespace {

constexpr int kImportWidthInDigits = 130;
constexpr int kImportHeightInLines = 36;
constexpr int kPermille = 1000;
constexpr std::chrono::milliseconds kUntilProgress(500);
constexpr std::chrono::milliseconds kProgressStep(100);

QString number(int count) {
    return QBLocaleInForce().toString(count);
}

} // namespace

CVImportWindow::CVImportWindow(CVDocument& document, CVFilePanels& panels, CVAlerts& alerts, CVHelpOpener* help,
                               QWidget* parent)
    : QDialog(parent)
    , mDocument(document)
    , mPanels(panels)
    , mAlerts(alerts)
    , mSummary(new CVElidedLabel(this))
    , mRemark(new QLabel(this))
    , mQuestions(new CVQuestionPane(this))
    , mStatementPane(new CVStatementPane(this))
    , mTargets(new CVTargetPane(document, this))
    , mLines(new CVImportLinePane(document, this))
    , mObstacle(new QLabel(this))
    , mProgress(new QProgressBar(this))
    , mReader(std::make_unique<CVImportReader>(document.dataFiles().value(0))) {
    setWindowModality(Qt::ApplicationModal);
    auto* const content = new QWidget;
    auto* const contents = new QVBoxLayout(content);
    contents->setContentsMargins(0, 0, 0, 0);
    addHeadline(*contents);
    addLines(*contents);
    auto* const window = new QVBoxLayout(this);
    window->addWidget(new CVScrollArea(*content, this), 1);
    addButtons(*window, help);
    connect(mReader.get(), &CVImportReader::statementRead, this, &CVImportWindow::takeStatement);
    connect(mReader.get(), &CVImportReader::linesPrepared, this, &CVImportWindow::takeLines);
    connect(mReader.get(), &CVImportReader::linesFound, this, &CVImportWindow::takeFound);
    connect(&mShowsProgress, &QTimer::timeout, this, &CVImportWindow::showProgress);
    mLines->restoreColumns();
    CVWindowFrame::restore(
        *this, document.userDefaults().dataForKey(CVDefaultsKeys::kImportWindow),
        {kImportWidthInDigits * fontMetrics().horizontalAdvance('0'), kImportHeightInLines * fontMetrics().height()});
}

CVImportWindow::~CVImportWindow() = default;

void CVImportWindow::addHeadline(QBoxLayout& contents) {
    QFont bold = mSummary->font();
    bold.setBold(true);
    mSummary->setFont(bold);
    mSummary->setObjectName(QStringLiteral("mSummary"));
    mRemark->setObjectName(QStringLiteral("mRemark"));
    mRemark->setTextFormat(Qt::PlainText);
    mRemark->setWordWrap(true);
    mRemark->hide();
    auto* const row = new QHBoxLayout;
    row->addWidget(mSummary, 1);
    mAnother = &CVCompactButton::addTo(*row, tr("Choose &Another File…"), "mAnotherButton", *this);
    mAnother->hide();
    mColumns = &CVCompactButton::addTo(*row, tr("Colu&mns…"), "mColumnsButton", *this);
    mColumns->setCheckable(true);
    mColumns->setEnabled(false);
    contents.addLayout(row);
    contents.addWidget(mRemark);
    contents.addWidget(mQuestions);
    contents.addWidget(mStatementPane);
    mStatementPane->hide();
    connect(mAnother, &QPushButton::clicked, this, &CVImportWindow::chooseAnother);
    connect(mColumns, &QPushButton::toggled, mStatementPane, &QWidget::setVisible);
    connect(mQuestions, &CVQuestionPane::answered, this, &CVImportWindow::takeAnswer);
    connect(mStatementPane, &CVStatementPane::changed, this, &CVImportWindow::readAs);
}

void CVImportWindow::addLines(QBoxLayout& contents) {
    mLines->addAbove(*mTargets);
    contents.addWidget(mLines, 1);
    connect(mTargets, &CVTargetPane::changed, this, &CVImportWindow::targetsChanged);
    connect(mLines, &CVImportLinePane::placesChanged, this, &CVImportWindow::find);
    connect(mLines, &CVImportLinePane::changed, this, [this] {
        mWasAsked = false;
        showState();
    });
}

void CVImportWindow::addButtons(QBoxLayout& window, CVHelpOpener* help) {
    auto* const row = new QHBoxLayout;
    if (help) {
        QPushButton& button = CVCompactButton::addTo(*row, tr("&Help"), "mHelpButton", *this);
        connect(&button, &QPushButton::clicked, this,
                [this, help] { help->showHelpPage(QStringLiteral("Import.html"), *this); });
        auto* const key = new QShortcut(QKeySequence::HelpContents, this);
        connect(key, &QShortcut::activated, &button, &QPushButton::click);
    }
    mObstacle->setObjectName(QStringLiteral("mObstacle"));
    mObstacle->setTextFormat(Qt::PlainText);
    mObstacle->setWordWrap(true);
    mObstacle->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    mProgress->setObjectName(QStringLiteral("mProgress"));
    mProgress->setAccessibleName(tr("Reading the Statement"));
    mProgress->setRange(0, kPermille);
    mProgress->hide();
    row->addWidget(mObstacle, 1);
    row->addWidget(mProgress);
    QPushButton& cancel = CVCompactButton::addTo(*row, tr("Cancel"), "mCancelButton", *this);
    mImport = &CVCompactButton::addTo(*row, tr("&Import"), "mImportButton", *this);
    connect(&cancel, &QPushButton::clicked, this, &CVImportWindow::reject);
    connect(mImport, &QPushButton::clicked, this, &CVImportWindow::importLines);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL | key), this);
        connect(shortcut, &QShortcut::activated, this, &CVImportWindow::importLines);
    }
    auto* const close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &CVImportWindow::reject);
    window.addLayout(row);
}

void CVImportWindow::read(const Source& source) {
    mSource = source;
    mKnown = {};
    mStatement.reset();
    setWindowTitle(source.path.isEmpty() ? tr("Import from Clipboard")
                                         : tr("Import: %1").arg(QFileInfo(source.path).fileName()));
    mLines->clear();
    mReader->read(source);
    begin();
}

CVImportWindow::Order CVImportWindow::order() const {
    return {mLines->lines().lines(), mTargets->targets(), mStatement, mNotes};
}

void CVImportWindow::readAs(const CVStatementMapping& known) {
    mReader->readAs(known);
    begin();
}

void CVImportWindow::takeAnswer(const CVStatementMapping& known) {
    mHasAnswered = true;
    readAs(known);
}

void CVImportWindow::begin() {
    mIsBusy = true;
    mIsFinding = false;
    mImportsWhenFound.reset();
    mShowsProgress.start(kUntilProgress);
    showState();
}

void CVImportWindow::finish() {
    mIsBusy = false;
    mShowsProgress.stop();
    mProgress->hide();
    showState();
}

/// The first time, the statement says where its lines go, and the budget is looked at.
void CVImportWindow::takeStatement(const CVStatementFindings& findings) {
    const bool isFirst = !mStatement;
    mStatement = findings.statement;
    mKnown = findings.known;
    if (isFirst)
        mTargets->setTargets(usualTargets(findings.notes));
    mNotes = findings.notes;
    if (!mRecorded)
        mRecorded = std::make_shared<CVRecordedLines>(mDocument);
    showStatement(findings.isAsLastTime);
    // Guesses are looked at once, and what is open as long as it is.
    const bool hasColumns = mStatement->mapping.columns.has_value();
    if (isFirst)
        mColumns->setChecked(hasColumns && !findings.isAsLastTime);
    else if (hasColumns && !mStatement->questions.empty())
        mColumns->setChecked(true);
    if (mStatement->problem.isEmpty())
        return prepare();
    mLines->take({}, mTargets->targets());
    finish();
    if (isFirst)
        mAnother->setFocus();
}

void CVImportWindow::prepare() {
    showTargets();
    mReader->prepare(mRecorded, mStatement, mTargets->targets());
    begin();
}

void CVImportWindow::takeLines(const CVPreparedLines& prepared) {
    const bool wasEmpty = mLines->lines().size() == 0;
    mLines->take(prepared.lines, mTargets->targets(), prepared.keys);
    finish();
    if (mLines->lines().areToBeFound())
        find();
    if (!wasEmpty && !std::exchange(mHasAnswered, false))
        return;
    if (mStatement->questions.empty())
        mLines->beginAtFirst();
    else
        mQuestions->focusFirst();
}

/// Lines that are prepared anew are found anew then.
void CVImportWindow::find() {
    if (mIsBusy)
        return;
    mIsFinding = true;
    mReader->find(mRecorded, mLines->lines().linesToFind(), mTargets->targets());
}

/// What the user has not seen is not imported.
void CVImportWindow::takeFound(const CVImportLines& found) {
    mIsFinding = false;
    mLines->takeFound(found);
    const auto wanted = std::exchange(mImportsWhenFound, std::nullopt);
    if (wanted == mLines->lines().count(CVImportRows::Kind::ToImport))
        importLines();
}

CVImportTargets CVImportWindow::usualTargets(const CVImportNotes& notes) const {
    if (const auto noted = notes.targets(mDocument, mStatement->headerDigest))
        return *noted;
    CVImportTargets targets;
    targets.set = mDocument.shownTransactionSet();
    for (const auto& set : mDocument.transactionSets()) {
        if (set->uniqueID() != targets.set && targets.incomeSet == 0 &&
            set->transactionSetName().contains(tr("Income"), Qt::CaseInsensitive))
            targets.incomeSet = set->uniqueID();
    }
    if (targets.incomeSet == 0)
        targets.newIncomeSet = tr("Income");
    return targets;
}

void CVImportWindow::showStatement(bool isAsLastTime) {
    const bool isRead = mStatement->problem.isEmpty();
    mSummary->setText(isRead ? mStatement->summary : tr("This statement cannot be read."));
    QStringList remarks;
    if (isAsLastTime)
        remarks.append(tr("Read like the last statement with these columns."));
    if (!mStatement->balanceRemark.isEmpty())
        remarks.append(mStatement->balanceRemark);
    mRemark->setText(remarks.join(u' '));
    mRemark->setVisible(!remarks.isEmpty());
    mColumns->setEnabled(mStatement->mapping != CVStatementMapping());
    if (!mColumns->isEnabled())
        mColumns->setChecked(false);
    mAnother->setVisible(!isRead);
    mQuestions->show(mStatement->questions);
    mStatementPane->show(mStatement, mKnown);
    QAccessibleEvent announcement(mSummary, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void CVImportWindow::showTargets() {
    mLines->setNamesOfSets(mTargets->nameOfSet(), mTargets->nameOfIncomeSet());
}

void CVImportWindow::targetsChanged() {
    if (mStatement && mStatement->problem.isEmpty())
        prepare();
}

void CVImportWindow::chooseAnother() {
    const auto path = chooseStatement(mPanels, *this);
    if (!path)
        return;
    if (!mIsStatement || mIsStatement(*path))
        return read({*path});
    mOtherFile = path;
    QDialog::reject();
}

std::optional<QString> CVImportWindow::chooseStatement(CVFilePanels& panels, QWidget& asker) {
    return panels.chooseFile(asker, {tr("Import a Statement"),
                                     tr("Open"),
                                     tr("Statements"),
                                     {QStringLiteral("csv"), QStringLiteral("tsv"), QStringLiteral("txt"),
                                      QStringLiteral("ofx"), QStringLiteral("qfx"), QStringLiteral("qif"),
                                      QStringLiteral("xml"), QStringLiteral("json"), QStringLiteral("corvella")}});
}

void CVImportWindow::showState() {
    const int count = mLines->lines().count(CVImportRows::Kind::ToImport);
    mImport->setText(count == 0   ? tr("&Import")
                     : count == 1 ? tr("&Import 1 Transaction")
                                  : tr("&Import %1 Transactions", nullptr, count).arg(number(count)));
    mImport->setAccessibleName(QString(mImport->text()).remove('&'));
    if (mIsBusy)
        mLines->setMessage(tr("Reading the statement…"));
    else if (mStatement && !mStatement->problem.isEmpty())
        mLines->setMessage(mStatement->problem);
    else
        mLines->setMessage(tr("There is no line in this statement."));
    showObstacle();
}

void CVImportWindow::showObstacle() {
    const QString why = obstacle();
    mImport->setEnabled(why.isEmpty());
    mImport->setAccessibleDescription(why);
    // What takes no time needs no word.
    mObstacle->setText(mIsBusy ? QString() : why);
}

QString CVImportWindow::obstacle() const {
    if (mIsBusy)
        return tr("The statement is being read.");
    if (!mStatement || !mStatement->problem.isEmpty())
        return tr("There is nothing to import.");
    if (!mStatement->questions.empty())
        return mStatement->questions.size() == 1 ? tr("Answer the question above first.")
                                                 : tr("Answer the questions above first.");
    if (QString problem = mTargets->problem(); !problem.isEmpty())
        return problem;
    if (mLines->lines().count(CVImportRows::Kind::ToImport) == 0)
        return mLines->lines().count(CVImportRows::Kind::Unreadable) == static_cast<int>(mLines->lines().size())
                   ? tr("No line can be read.")
                   : tr("No line is checked.");
    const int without = mLines->lines().count(CVImportRows::Kind::WithoutCategory);
    if (without > 0)
        return without == 1 ? tr("1 transaction has no category yet.")
                            : tr("%1 transactions have no category yet.", nullptr, without).arg(number(without));
    return {};
}

void CVImportWindow::showProgress() {
    mShowsProgress.start(kProgressStep);
    mProgress->setValue(mReader->permille());
    mProgress->show();
}

void CVImportWindow::importLines() {
    if (!mLines->commit() || !obstacle().isEmpty())
        return;
    if (mIsFinding)
        mImportsWhenFound = mLines->lines().count(CVImportRows::Kind::ToImport);
    else
        accept();
}

void CVImportWindow::reject() {
    if (mLines->lines().hasChanges() && !mWasAsked) {
        mWasAsked = true;
        CVAlert question{tr("Do you want to give up this import?"),
                         tr("What you have changed in its lines is lost. Your budget stays as it is."), tr("Go On"),
                         tr("Give Up")};
        question.escapeAnswer = CVAlert::kDefault;
        if (mAlerts.run(this, question) == CVAlert::kDefault)
            return;
    }
    QDialog::reject();
}

void CVImportWindow::done(int result) {
    mLines->keepColumns();
    mDocument.userDefaults().setData(CVDefaultsKeys::kImportWindow, saveGeometry());
    mReader.reset();
    mShowsProgress.stop();
    QDialog::done(result);
}

/// Escape clears the search first.
void CVImportWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || !mLines->clearFocusedSearch())
        QDialog::keyPressEvent(event);
}

void CVImportWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LocaleChange && mLines)
        mLines->updateFormats();
}
