#include "merging/CVMergeWindow.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "comparing/CVVersionLinePane.h"
#include "merging/CVBothSidesText.h"
#include "merging/CVMergeHost.h"
#include "model/CVDocument.h"
#include "storage/CVDocumentXML.h"
#include "versions/CVConflictCopies.h"
#include "widgets/CVElidedLabel.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int kMergeWidthInDigits = 136;
constexpr int kMergeHeightInLines = 30;

} // namespace

CVMergeWindow::CVMergeWindow(CVDocument& document, CVMergeHost& host, CVHelpOpener* help, CVMergePurpose purpose)
    : CVLineWindow(document)
    , mPurpose(purpose)
    , mHost(host)
    , mHeadline(new QLabel(this))
    , mPlace(new CVElidedLabel(this))
    , mSourcesLabel(new QLabel(tr("&File:"), this))
    , mSources(new QComboBox(this))
    , mBothSides(new QLabel(this)) {
    setWindowTitle(isImport() ? tr("Import") : tr("Changes from Elsewhere"));
    addHeadline();
    makeLines(isImport() ? CVComparedWith::Import : CVComparedWith::Other, CVDefaultsKeys::kMergeLineColumns, this);
    contents().addWidget(&lines(), 1);
    contents().addWidget(mBothSides);
    addRemarks();
    addButtons(help);
    connect(&lines(), &CVVersionLinePane::selectionChanged, this, &CVMergeWindow::showState);
    lines().restoreColumns(document.userDefaults());
    restoreFrame(CVDefaultsKeys::kMergeWindow, kMergeWidthInDigits, kMergeHeightInLines);
}

CVMergeWindow::~CVMergeWindow() {
    if (isVisible())
        CVMergeWindow::keepLooks();
}

void CVMergeWindow::addHeadline() {
    QFont bold = mHeadline->font();
    bold.setBold(true);
    mHeadline->setFont(bold);
    mHeadline->setObjectName(QStringLiteral("mHeadline"));
    mBothSides->setObjectName(QStringLiteral("mBothSides"));
    for (QLabel* const label : {mHeadline, mBothSides}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    mPlace->setObjectName(QStringLiteral("mPlace"));
    mSources->setObjectName(QStringLiteral("mSourceBox"));
    mSources->setAccessibleName(tr("File"));
    mSourcesLabel->setBuddy(mSources);
    auto* const row = new QHBoxLayout;
    row->addWidget(mSourcesLabel);
    row->addWidget(mSources);
    row->addStretch();
    contents().addWidget(mHeadline);
    contents().addWidget(mPlace);
    contents().addLayout(row);
    connect(mSources, &QComboBox::activated, this, &CVMergeWindow::sourcePicked);
}

void CVMergeWindow::addButtons(CVHelpOpener* help) {
    QHBoxLayout& row = addButtonRow();
    mBringIn = &addButton(row, tr("Bring &In Lines"), "mBringInButton");
    mBringInAll = &addButton(row, tr("Bring In A&ll"), "mBringInAllButton");
    addHelpAndClose(row, help, isImport() ? QStringLiteral("Import.html") : QStringLiteral("TwoHands.html"));
    connect(mBringIn, &QPushButton::clicked, this,
            [this] { bringIn(lines().takeable(), static_cast<int>(lines().countTakeable())); });
    connect(mBringInAll, &QPushButton::clicked, this,
            [this] { bringIn(mShown.comparison->differences, static_cast<int>(lines().countAll())); });
}

void CVMergeWindow::keepLooks() {
    lines().keepColumns(document().userDefaults());
    document().userDefaults().setData(CVDefaultsKeys::kMergeWindow, saveGeometry());
}

void CVMergeWindow::updateFormats() {
    lines().updateFormats();
    showHeadline();
}

void CVMergeWindow::offer(const CVMergeSource& source) {
    // The user has chosen this one just now.
    if (isImport())
        mOffered.clear();
    const auto same = std::find_if(mOffered.begin(), mOffered.end(),
                                   [&source](const Offered& offered) { return offered.source.path == source.path; });
    const bool isAnother = same == mOffered.end();
    if (isAnother)
        mOffered.push_back({source});
    else
        *same = {source};
    const int place = isAnother ? static_cast<int>(mOffered.size()) - 1 : static_cast<int>(same - mOffered.begin());
    const bool isBusy = isVisible() && chosen() && !chosen()->isIn && mSources->currentIndex() != place;
    const int current = isBusy ? mSources->currentIndex() : place;
    listSources();
    mSources->setCurrentIndex(current);
    // Several that are offered at once need no remark: the user sees the list with the first lines.
    if (isBusy && !mShown.path.isEmpty())
        setRemark(tr("There is another file with changes: “%1”").arg(QFileInfo(source.path).fileName()));
    else if (isVisible() && !isBusy)
        sourcePicked();
}

bool CVMergeWindow::hasSource(const QString& path) const {
    return std::any_of(mOffered.begin(), mOffered.end(),
                       [&path](const Offered& offered) { return offered.source.path == path; });
}

void CVMergeWindow::listSources() {
    mSources->clear();
    for (const Offered& offered : mOffered)
        mSources->addItem(QFileInfo(offered.source.path).fileName());
    mSourcesLabel->setVisible(mOffered.size() > 1);
    mSources->setVisible(mOffered.size() > 1);
}

CVMergeWindow::Offered* CVMergeWindow::chosen() {
    const int place = mSources->currentIndex();
    return place < 0 || mOffered.empty() ? nullptr : &mOffered[static_cast<std::size_t>(place)];
}

void CVMergeWindow::showWindow(Asked asked) {
    if (!mReader) {
        mReader = std::make_unique<CVMergeReader>();
        connect(mReader.get(), &CVMergeReader::found, this, &CVMergeWindow::take);
    }
    const bool isNew = !isVisible();
    if (isNew) {
        lines().focusTable();
        sourcePicked();
    }
    // Keys that are typed for another window stay there.
    setAttribute(Qt::WA_ShowWithoutActivating, asked == Asked::ByItself);
    show();
    if (asked == Asked::ByItself)
        return;
    raise();
    activateWindow();
}

void CVMergeWindow::forgetSources() {
    if (isVisible())
        reject();
    mOffered.clear();
    listSources();
}

/// Files that are wholly in the budget are not offered again, and imported ones are chosen anew.
void CVMergeWindow::done(int result) {
    CVLineWindow::done(result);
    std::erase_if(mOffered, [this](const Offered& offered) { return offered.isIn || isImport(); });
    listSources();
}

void CVMergeWindow::stopReading() {
    mReader.reset();
    mShown = {};
    mIsCurrent = false;
}

void CVMergeWindow::sourcePicked() {
    setRemark({});
    mShown = {};
    showLines();
    refresh();
}

void CVMergeWindow::refresh() {
    const Offered* const offered = chosen();
    if (!mReader || !offered)
        return;
    mIsCurrent = false;
    if (offered->first.comparison)
        mReader->readRest(CVDocumentXMLRepresentation(document()), offered->first);
    else if (isImport())
        mReader->readForImport(CVDocumentXMLRepresentation(document()), offered->source.path);
    else
        mReader->read(CVDocumentXMLRepresentation(document()), offered->source);
    readingBegan();
    showState();
}

void CVMergeWindow::take(const CVMergeFindings& findings) {
    Offered* const offered = chosen();
    if (!offered || offered->source.path != findings.path)
        return;
    if (!offered->first.comparison)
        offered->first = findings;
    mShown = findings;
    mIsCurrent = true;
    offered->isIn = findings.comparison && findings.comparison->differences.isEmpty();
    showLines();
}

void CVMergeWindow::showLines() {
    std::shared_ptr<const CVBudgetDifferences> differences;
    if (mShown.comparison)
        differences = {mShown.comparison, &mShown.comparison->differences};
    lines().show(differences, linesChangedTwice());
    showHeadline();
    showState();
}

/// The records of each comparison are other objects, so a line is known by what it says.
CVVersionLines::ChangedTwice CVMergeWindow::linesChangedTwice() {
    CVVersionLines::ChangedTwice lines;
    const Offered* const offered = chosen();
    if (!mShown.comparison || !offered || !offered->first.comparison)
        return lines;
    QHash<CVTransactionContent, std::shared_ptr<CVTransaction>> ours;
    for (const auto& [here, there] : offered->first.comparison->merged.transactions)
        ours.insert(CVTransactionContent(*there), here);
    for (const auto& [there, here] : mShown.comparison->differences.transactions) {
        if (!ours.isEmpty() && there && !here && ours.contains(CVTransactionContent(*there)))
            lines.insert(there.get(), ours.value(CVTransactionContent(*there)));
    }
    return lines;
}

void CVMergeWindow::showHeadline() {
    const Offered* const offered = chosen();
    const QString path = offered ? offered->source.path : QString();
    if (isImport())
        setWindowTitle(tr("Import: %1").arg(QFileInfo(path).fileName()));
    mHeadline->setText(headline(path));
    mPlace->setText(tr("The other file: %1").arg(QDir::toNativeSeparators(path)));
    const QString below = textBelow(offered);
    mBothSides->setText(below);
    mBothSides->setVisible(!below.isEmpty());
}

QString CVMergeWindow::headline(const QString& path) const {
    if (isImport() && mShown.path.isEmpty())
        return tr("Reading the other file…");
    if (isImport())
        return mShown.problem.isEmpty() ? mShown.summary : tr("This file cannot be read.");
    return CVConflictCopies::isNameOfOne(QFileInfo(path).fileName(), document().placeForSaving())
               ? tr("A synchronizer has left a copy of your data file, because it was changed at two places. Both are "
                    "whole.")
               : tr("Another program has changed your data file while you were changing your budget. Both are kept "
                    "whole.");
}

QString CVMergeWindow::textBelow(const Offered* offered) const {
    if (!offered || !offered->first.comparison)
        return {};
    const CVCommonKnown common = isImport()               ? CVCommonKnown::Imported
                                 : offered->source.common ? CVCommonKnown::Known
                                                          : CVCommonKnown::Unknown;
    QStringList sentences{offered->first.partly, CVBothSidesText(offered->first.comparison->merged, common)};
    sentences.removeAll(QString());
    return sentences.join(u'\n');
}

void CVMergeWindow::showState() {
    showMessage();
    updateButtons();
    showProgress();
}

QString CVMergeWindow::progress(bool isLate) const {
    if (!mIsCurrent)
        return isLate ? tr("Comparing with your budget…") : QString();
    if (document().isReadOnly())
        return tr("Read-only: nothing can be brought in.");
    return lines().hasTakeable() && !lines().hasSelection() ? tr("Select the lines that are to come in.") : QString();
}

/// Says why there are no lines.
void CVMergeWindow::showMessage() {
    const Offered* const offered = chosen();
    QString message;
    if (!mShown.problem.isEmpty() && isImport())
        message = mShown.problem.left(1).toUpper() + mShown.problem.mid(1);
    else if (!mShown.problem.isEmpty())
        message = tr("This file cannot be read: %1").arg(mShown.problem);
    else if (!mShown.comparison)
        message = tr("Reading the other file…");
    else if (offered && offered->wasTaken)
        message = tr("Everything of that file is in your budget now.");
    else
        message = tr("Your budget already holds everything of that file.");
    lines().setMessage(message);
}

void CVMergeWindow::updateButtons() {
    const auto count = mIsCurrent ? static_cast<int>(lines().countTakeable()) : 0;
    const auto all = mIsCurrent ? static_cast<int>(lines().countAll()) : 0;
    setTextOfButton(*mBringIn, count == 0   ? tr("Bring &In Lines")
                               : count == 1 ? tr("Bring &In 1 Line")
                                            : tr("Bring &In %1 Lines", nullptr, count).arg(counted(count)));
    setTextOfButton(*mBringInAll,
                    all < 2 ? tr("Bring In A&ll") : tr("Bring In A&ll %1 Lines", nullptr, all).arg(counted(all)));
    const bool canEdit = !document().isReadOnly();
    mBringIn->setEnabled(count > 0 && canEdit);
    mBringInAll->setEnabled(all > 0 && canEdit);
}

void CVMergeWindow::bringIn(const CVBudgetDifferences& chosenLines, int count) {
    // Kept here, because the budget changes below and other lines may be shown meanwhile.
    const auto comparison = mShown.comparison;
    const auto all = static_cast<int>(lines().countAll());
    const int in = mHost.bringIn(**comparison->merged.budget, **comparison->ours, chosenLines);
    if (Offered* const offered = chosen())
        offered->wasTaken = offered->wasTaken || in > 0;
    mIsCurrent = in == 0;
    const QString number = counted(in);
    if (in < count)
        setRemark(tr("%1 of %2 lines brought in; the others do not fit your budget as it is now", nullptr, count)
                      .arg(number, counted(count)));
    else
        setRemark(in == 1 ? tr("1 line brought in") : tr("%1 lines brought in", nullptr, in).arg(number));
    if (isImport() && in == all) {
        accept();
        return;
    }
    compareSoon();
    showState();
    // The button is disabled now, and the focus would go to the next control.
    lines().focusTable();
}
