#include "history/CVHistoryWindow.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "comparing/CVVersionLinePane.h"
#include "differences/CVBudgetDifferences.h"
#include "history/CVHistoryHost.h"
#include "history/CVVersionTable.h"
#include "history/CVVersionText.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVVersionLimit.h"
#include "widgets/CVAlerts.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QSplitter>

namespace {

constexpr int kWindowWidthInDigits = 136;
constexpr int kWindowHeightInLines = 36;

} // namespace

CVHistoryWindow::CVHistoryWindow(CVDocument& document, CVHistoryHost& host, CVAlerts& alerts, CVHelpOpener* help)
    : CVLineWindow(document)
    , mHost(host)
    , mAlerts(alerts)
    , mSplitter(new QSplitter(Qt::Vertical, this))
    , mVersions(new CVVersionTable(mSplitter)) {
    setWindowTitle(tr("Earlier Versions"));
    contents().addWidget(mSplitter, 1);
    makeLines(CVComparedWith::Version, CVDefaultsKeys::kVersionLineColumns, mSplitter);
    mSplitter->setObjectName(QStringLiteral("mSplitter"));
    mSplitter->setStretchFactor(0, 2);
    mSplitter->setStretchFactor(1, 3);
    mSplitter->setChildrenCollapsible(false);
    mVersions->setObjectName(QStringLiteral("mVersionTable"));
    mVersions->setAccessibleName(tr("Earlier Versions"));
    connect(mVersions, &CVVersionTable::picked, this, &CVHistoryWindow::versionPicked);
    addRemarks();
    addButtons(help);
    connect(&lines(), &CVVersionLinePane::selectionChanged, this, &CVHistoryWindow::showState);
    restoreLooks();
}

CVHistoryWindow::~CVHistoryWindow() {
    if (isVisible())
        CVHistoryWindow::keepLooks();
}

void CVHistoryWindow::addButtons(CVHelpOpener* help) {
    QHBoxLayout& row = addButtonRow();
    mSaveCopy = &addButton(row, tr("&Save a Copy…"), "mSaveCopyButton");
    mReturn = &addButton(row, tr("Re&turn to This Version…"), "mReturnButton");
    mBringBack = &addButton(row, tr("&Bring Back Lines"), "mBringBackButton");
    addHelpAndClose(row, help, QStringLiteral("EarlierVersions.html"));
    connect(mSaveCopy, &QPushButton::clicked, this, &CVHistoryWindow::saveCopy);
    connect(mReturn, &QPushButton::clicked, this, &CVHistoryWindow::returnToVersion);
    connect(mBringBack, &QPushButton::clicked, this, &CVHistoryWindow::bringBack);
}

void CVHistoryWindow::restoreLooks() {
    const QBUserDefaults& defaults = document().userDefaults();
    mVersions->restoreColumns(defaults);
    lines().restoreColumns(defaults);
    mSplitter->restoreState(defaults.dataForKey(CVDefaultsKeys::kVersionSplitter));
    restoreFrame(CVDefaultsKeys::kVersionWindow, kWindowWidthInDigits, kWindowHeightInLines);
}

void CVHistoryWindow::keepLooks() {
    QBUserDefaults& defaults = document().userDefaults();
    mVersions->keepColumns(defaults);
    lines().keepColumns(defaults);
    defaults.setData(CVDefaultsKeys::kVersionSplitter, mSplitter->saveState());
    defaults.setData(CVDefaultsKeys::kVersionWindow, saveGeometry());
}

void CVHistoryWindow::updateFormats() {
    mVersions->updateFormats();
    lines().updateFormats();
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

void CVHistoryWindow::stopReading() {
    mReader.reset();
    mShown = {};
}

void CVHistoryWindow::refresh() {
    if (!mReader)
        return;
    const QList<CVListedVersion> versions = CVListedVersion::of(document().dataFiles().value(0));
    mVersions->setVersions(versions, document().transactions().size());
    mAwaited.clear();
    for (const CVListedVersion& version : versions)
        mAwaited.append(version.path);
    mReader->read(CVDocumentXMLRepresentation(document()), mAwaited);
    readingBegan();
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
    lines().show(findings.differences);
}

void CVHistoryWindow::showState() {
    showMessage();
    updateButtons();
    showProgress();
}

/// Says how far the reading is once it takes long, and then what to do.
QString CVHistoryWindow::progress(bool isLate) const {
    const int versions = mVersions->countVersions();
    if (!mAwaited.isEmpty())
        return isLate ? tr("%1 of %2 versions read…").arg(counted(versions - mAwaited.size()), counted(versions))
                      : QString();
    if (document().isReadOnly())
        return tr("Read-only: nothing can be brought back.");
    if (!lines().hasTakeable() || mBringBack->isEnabled())
        return {};
    return lines().hasSelection() ? tr("What was added since has nothing to bring back.")
                                  : tr("Select the lines that are to come back.");
}

/// Says why there are no lines.
void CVHistoryWindow::showMessage() {
    const auto findings = mVersions->chosenFindings();
    QString message;
    if (mVersions->countVersions() == 0 && CVVersionLimit(document().userDefaults()) == 0)
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
    lines().setMessage(message);
}

void CVHistoryWindow::updateButtons() {
    const auto findings = mVersions->chosenFindings();
    const bool canEdit = !document().isReadOnly();
    mReturn->setEnabled(findings && findings->problem.isEmpty() && canEdit);
    const auto count = static_cast<int>(lines().countTakeable());
    const QString text = count == 0   ? tr("&Bring Back Lines")
                         : count == 1 ? tr("&Bring Back 1 Line")
                                      : tr("&Bring Back %1 Lines", nullptr, count).arg(counted(count));
    setTextOfButton(*mBringBack, text);
    mBringBack->setEnabled(count > 0 && canEdit);
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
    const auto count = static_cast<int>(lines().countTakeable());
    if (count == 0)
        return;
    // Kept here, because the budget changes below and other lines may be shown meanwhile.
    const CVVersionFindings shown = mShown;
    const int back = mHost.bringBack(*shown.version, lines().takeable());
    const QString number = counted(back);
    if (back < count)
        setRemark(tr("%1 of %2 lines brought back; the others no longer fit the present budget", nullptr, count)
                      .arg(number, counted(count)));
    else
        setRemark(back == 1 ? tr("1 line brought back") : tr("%1 lines brought back", nullptr, back).arg(number));
    // The button is disabled now, and the focus would go to the next control.
    lines().focusTable();
}
