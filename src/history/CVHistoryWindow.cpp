#include "history/CVHistoryWindow.h"

#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "differences/CVBudgetDifferences.h"
#include "format/QBLocale.h"
#include "history/CVHistoryHost.h"
#include "history/CVVersionLinePane.h"
#include "history/CVVersionTable.h"
#include "history/CVVersionText.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVVersionLimit.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/CVQuietTextColour.h"
#include "widgets/CVWindowFrame.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>
#include <QSplitter>

#include <algorithm>
#include <chrono>

namespace {

constexpr std::chrono::milliseconds kChangesSettle(300);
constexpr std::chrono::milliseconds kProgressDelay(500);
constexpr int kWindowWidthInDigits = 136;
constexpr int kWindowHeightInLines = 36;

QString counted(qsizetype count) {
    return QBLocaleInForce().toString(count);
}

} // namespace

CVHistoryWindow::CVHistoryWindow(CVDocument& document, CVHistoryHost& host, CVAlerts& alerts, CVHelpOpener* help)
    : QDialog(nullptr)
    , mDocument(&document)
    , mHost(host)
    , mAlerts(alerts)
    , mSplitter(new QSplitter(Qt::Vertical, this))
    , mVersions(new CVVersionTable(mSplitter))
    , mLines(new CVVersionLinePane(mSplitter))
    , mRemark(new QLabel(this))
    , mProgress(new QLabel(this))
    , mCompare(this)
    , mShowsProgress(this) {
    setWindowTitle(tr("Earlier Versions"));
    // Only the main window's closing ends the program.
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(mSplitter, 1);
    mSplitter->setObjectName(QStringLiteral("mSplitter"));
    mSplitter->setStretchFactor(0, 2);
    mSplitter->setStretchFactor(1, 3);
    mSplitter->setChildrenCollapsible(false);
    mVersions->setObjectName(QStringLiteral("mVersionTable"));
    mVersions->setAccessibleName(tr("Earlier Versions"));
    connect(mVersions, &CVVersionTable::picked, this, &CVHistoryWindow::versionPicked);
    addRemarks();
    addButtons(help);
    connect(mLines, &CVVersionLinePane::selectionChanged, this, &CVHistoryWindow::showState);
    restoreLooks();
    observe();
    changeEvent(nullptr);
}

CVHistoryWindow::~CVHistoryWindow() {
    if (isVisible())
        keepLooks();
}

void CVHistoryWindow::addRemarks() {
    auto* const row = new QHBoxLayout;
    mRemark->setObjectName(QStringLiteral("mRemark"));
    mProgress->setObjectName(QStringLiteral("mProgress"));
    // The line keeps its height, so that nothing moves when a remark comes and goes.
    for (QLabel* const label : {mRemark, mProgress}) {
        label->setTextFormat(Qt::PlainText);
        label->setMinimumHeight(fontMetrics().height());
    }
    mRemark->setWordWrap(true);
    row->addWidget(mRemark, 1);
    row->addWidget(mProgress);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void CVHistoryWindow::addButtons(CVHelpOpener* help) {
    auto* const row = new QHBoxLayout;
    mSaveCopy = &addButton(*row, tr("&Save a Copy…"), "mSaveCopyButton");
    mReturn = &addButton(*row, tr("Re&turn to This Version…"), "mReturnButton");
    mBringBack = &addButton(*row, tr("&Bring Back Lines"), "mBringBackButton");
    row->addStretch();
    if (help) {
        connect(&addButton(*row, tr("&Help"), "mHelpButton"), &QPushButton::clicked, this,
                [this, help] { help->showHelpPage(QStringLiteral("EarlierVersions.html"), *this); });
    }
    connect(&addButton(*row, tr("&Close"), "mCloseButton"), &QPushButton::clicked, this, &QDialog::reject);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    connect(mSaveCopy, &QPushButton::clicked, this, &CVHistoryWindow::saveCopy);
    connect(mReturn, &QPushButton::clicked, this, &CVHistoryWindow::returnToVersion);
    connect(mBringBack, &QPushButton::clicked, this, &CVHistoryWindow::bringBack);
    auto* const close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QDialog::reject);
}

QPushButton& CVHistoryWindow::addButton(QHBoxLayout& row, const QString& text, const char* name) {
    auto* const button = new CVCompactButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(QString(text).remove('&'));
    // Return belongs to the tables.
    button->setAutoDefault(false);
    row.addWidget(button);
    return *button;
}

void CVHistoryWindow::restoreLooks() {
    const QBUserDefaults& defaults = mDocument->userDefaults();
    mVersions->restoreColumns(defaults);
    mLines->restoreColumns(defaults);
    mSplitter->restoreState(defaults.dataForKey(CVDefaultsKeys::kVersionSplitter));
    const QSize first(kWindowWidthInDigits * fontMetrics().horizontalAdvance('0'),
                      kWindowHeightInLines * fontMetrics().height());
    CVWindowFrame::restore(*this, defaults.dataForKey(CVDefaultsKeys::kVersionWindow), first);
}

void CVHistoryWindow::keepLooks() {
    QBUserDefaults& defaults = mDocument->userDefaults();
    mVersions->keepColumns(defaults);
    mLines->keepColumns(defaults);
    defaults.setData(CVDefaultsKeys::kVersionSplitter, mSplitter->saveState());
    defaults.setData(CVDefaultsKeys::kVersionWindow, saveGeometry());
}

void CVHistoryWindow::observe() {
    mCompare.setSingleShot(true);
    mCompare.setInterval(kChangesSettle);
    connect(&mCompare, &QTimer::timeout, this, &CVHistoryWindow::refresh);
    mShowsProgress.setSingleShot(true);
    mShowsProgress.setInterval(kProgressDelay);
    connect(&mShowsProgress, &QTimer::timeout, this, &CVHistoryWindow::showProgress);
    const QBNotificationCenter& center = mDocument->notificationCenter();
    for (const char* const name : {CVNotifications::kTransactionAddedRemoved, CVNotifications::kCategoryAddedRemoved,
                                   CVNotifications::kTransactionSet})
        center.addObserver(QLatin1String(name), this, [this](const QBNotification&) { compareSoon(); });
    center.addObserver(QLatin1String(CVNotifications::kMoneyFormatterChanged), this, [this](const QBNotification&) {
        mVersions->updateFormats();
        mLines->updateFormats();
    });
}

void CVHistoryWindow::setDocument(CVDocument& document) {
    mDocument = &document;
    if (isVisible())
        refresh();
}

void CVHistoryWindow::showWindow() {
    mVersions->chooseNewest();
    if (!mReader) {
        mReader = std::make_unique<CVVersionReader>();
        connect(mReader.get(), &CVVersionReader::found, this, &CVHistoryWindow::take);
    }
    setRemark({});
    refresh();
    if (!isVisible())
        mVersions->setFocus();
    show();
    raise();
    activateWindow();
}

void CVHistoryWindow::versionsChanged() {
    compareSoon();
}

void CVHistoryWindow::compareSoon() {
    if (isVisible())
        mCompare.start();
}

void CVHistoryWindow::done(int result) {
    keepLooks();
    mReader.reset();
    mCompare.stop();
    mShowsProgress.stop();
    mShown = {};
    mLines->show(nullptr);
    QDialog::done(result);
}

void CVHistoryWindow::refresh() {
    if (!mReader)
        return;
    const QList<CVListedVersion> versions = CVListedVersion::of(mDocument->dataFiles().value(0));
    mVersions->setVersions(versions, mDocument->transactions().size());
    mAwaited.clear();
    for (const CVListedVersion& version : versions)
        mAwaited.append(version.path);
    mReader->read(CVDocumentXMLRepresentation(*mDocument), mAwaited);
    mShowsProgress.start();
    versionPicked();
}

void CVHistoryWindow::versionPicked() {
    if (!mReader)
        return;
    const QString path = mVersions->chosenPath();
    if (mShown.path != path)
        showLines({});
    mReader->choose(path);
    showState();
}

void CVHistoryWindow::take(const CVVersionFindings& findings) {
    mVersions->setFindings(findings);
    mAwaited.removeAll(findings.path);
    if (findings.differences && findings.path == mVersions->chosenPath())
        showLines(findings);
    showState();
}

void CVHistoryWindow::showLines(const CVVersionFindings& findings) {
    mShown = findings;
    mLines->show(findings.differences);
}

void CVHistoryWindow::showState() {
    showMessage();
    updateButtons();
    showProgress();
}

/// Says how far the reading is once it takes long, and then what to do.
void CVHistoryWindow::showProgress() {
    QString text;
    const int versions = mVersions->countVersions();
    if (!mAwaited.isEmpty() && !mShowsProgress.isActive())
        text = tr("%1 of %2 versions read…").arg(counted(versions - mAwaited.size()), counted(versions));
    else if (mAwaited.isEmpty() && mDocument->isReadOnly())
        text = tr("Read-only: nothing can be brought back.");
    else if (mAwaited.isEmpty() && mLines->hasReturnable() && !mBringBack->isEnabled())
        text = mLines->hasSelection() ? tr("What was added since has nothing to bring back.")
                                      : tr("Select the lines that are to come back.");
    mProgress->setText(text);
}

/// Says why there are no lines.
void CVHistoryWindow::showMessage() {
    const auto findings = mVersions->chosenFindings();
    QString message;
    if (mVersions->countVersions() == 0 && CVVersionLimit(mDocument->userDefaults()) == 0)
        message = tr("No earlier versions are kept. Preferences > Data File switches that on.");
    else if (mVersions->countVersions() == 0)
        message = tr("There are no earlier versions yet. Corvella keeps one before anything is removed and at the "
                     "first change of each day.");
    else if (!mVersions->chosen())
        message = tr("This is the budget as it is now. Choose a version above to see what differs.");
    else if (findings && !findings->problem.isEmpty())
        message = tr("This version cannot be read: %1").arg(findings->problem);
    else if (mShown.path != mVersions->chosenPath())
        message = tr("Reading this version…");
    else
        message = tr("Nothing has changed since then.");
    mLines->setMessage(message);
}

void CVHistoryWindow::updateButtons() {
    const auto findings = mVersions->chosenFindings();
    const bool canEdit = !mDocument->isReadOnly();
    mReturn->setEnabled(findings && findings->problem.isEmpty() && canEdit);
    const auto count = static_cast<int>(mLines->countReturnable());
    const QString text = count == 0   ? tr("&Bring Back Lines")
                         : count == 1 ? tr("&Bring Back 1 Line")
                                      : tr("&Bring Back %1 Lines", nullptr, count).arg(counted(count));
    mBringBack->setText(text);
    mBringBack->setAccessibleName(QString(text).remove('&'));
    mBringBack->setEnabled(count > 0 && canEdit);
}

void CVHistoryWindow::setRemark(const QString& remark) {
    mRemark->setText(remark);
    if (remark.isEmpty())
        return;
    QAccessibleEvent announcement(mRemark, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void CVHistoryWindow::saveCopy() {
    setRemark(mHost.saveCopy(mVersions->chosenPath(), *this) ? tr("The copy was saved") : QString());
}

void CVHistoryWindow::returnToVersion() {
    if (!mVersions->chosen())
        return;
    const QString path = mVersions->chosen()->path;
    const QString moment = CVVersionText::moment(mVersions->chosen()->kept);
    const auto answer =
        mAlerts.run(this, {tr("Return to the version “%1”?").arg(moment),
                           tr("The present budget is kept as a version first, so that you can return to it as well."),
                           tr("Return"), tr("Cancel")});
    if (answer == CVAlert::kDefault && mHost.returnTo(path, *this))
        setRemark(tr("Your budget is the version “%1” again; what it was before is a version now").arg(moment));
}

void CVHistoryWindow::bringBack() {
    const auto count = static_cast<int>(mLines->countReturnable());
    if (count == 0)
        return;
    // Kept here, because the budget changes below and other lines may be shown meanwhile.
    const CVVersionFindings shown = mShown;
    const int back = mHost.bringBack(*shown.version, mLines->returnable());
    const QString number = counted(back);
    if (back < count)
        setRemark(tr("%1 of %2 lines brought back; the others no longer fit the present budget", nullptr, count)
                      .arg(number, counted(count)));
    else
        setRemark(back == 1 ? tr("1 line brought back") : tr("%1 lines brought back", nullptr, back).arg(number));
    // The button is disabled now, and the focus would go to the next control.
    mLines->focusTable();
}

/// Escape clears the search first.
void CVHistoryWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || !mLines->clearFocusedSearch())
        QDialog::keyPressEvent(event);
}

void CVHistoryWindow::changeEvent(QEvent* event) {
    if (event)
        QDialog::changeEvent(event);
    if (event && event->type() != QEvent::PaletteChange)
        return;
    QPalette quiet = palette();
    quiet.setColor(QPalette::WindowText, CVQuietTextColour(palette()));
    mProgress->setPalette(quiet);
}
