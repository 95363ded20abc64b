#include "workspace/CVMainWindow.h"

#include "base/QBUserDefaults.h"
#include "contents/CVBudgetContents.h"
#include "widgets/CVScrollArea.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/CVWindowFrame.h"
#include "widgets/fields/CVFormattedField.h"
#include "widgets/tables/CVCommitOpenEditor.h"
#include "widgets/tables/CVTableView.h"
#include "workspace/CVMainMenu.h"
#include "workspace/budgettabs/CVReportsTab.h"
#include "workspace/budgettabs/CVSummaryTab.h"
#include "workspace/controls/CVEntryStrip.h"
#include "workspace/controls/CVReadOnlyNotice.h"
#include "workspace/controls/CVSaveStatus.h"
#include "workspace/controls/CVSetPicker.h"
#include "workspace/transactions/CVTransactionColumnLayout.h"
#include "workspace/transactions/CVTransactionTableView.h"
#include "workspace/transactions/CVTransactionsTab.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMimeData>
#include <QTabWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace {

/// The margins of the window and the gaps between its parts, in pixels. Both are small, because large letters leave the
/// list little room.
constexpr int kEdge = 9;
constexpr int kGap = 6;

constexpr const char* kFrameKey = "CVMainWindowController";
constexpr const char* kColumnsKey = "CVMainWindowController Columns";
constexpr const char* kAllSetsColumnsKey = "CVMainWindowController All Sets Columns";
constexpr const char* kReportColumnsKey = "CVMainWindowController Report Columns";
constexpr int kFirstWidthInDigits = 135;
constexpr int kFirstHeightInLines = 45;

} // namespace

CVMainWindow::CVMainWindow(const CVBudgetContents& contents)
    : mEntryStrip(new CVEntryStrip(this))
    , mReadOnlyNotice(new CVReadOnlyNotice(this))
    , mMainTabView(new QTabWidget(this))
    , mSetPicker(new CVSetPicker(*mMainTabView))
    , mTransactionsTab(new CVTransactionsTab(contents.list(), this))
    , mSummaryTab(new CVSummaryTab(contents.grid(), this))
    , mReportsTab(new CVReportsTab(contents.reports(), this))
    , mSaveStatus(new CVSaveStatus(this)) {
    mMainTabView->setObjectName(QStringLiteral("mMainTabView"));
    CVSetAccessibleName(*mMainTabView, tr("Views"));
    mMainTabView->addTab(mTransactionsTab, tr("Transactions"));
    mMainTabView->addTab(mSummaryTab, tr("Summary"));
    mMainTabView->addTab(mReportsTab, tr("Reports"));
    // Document mode leaves out the frame around the pages.
    mMainTabView->setDocumentMode(true);
    // The pages have no margins, so that their edges are in line with those of the entry strip.
    for (int page = 0; page < mMainTabView->count(); ++page) {
        QLayout& inside = *mMainTabView->widget(page)->layout();
        inside.setContentsMargins(0, kGap, 0, 0);
        inside.setSpacing(kGap);
    }
    connect(mSetPicker, &CVSetPicker::picked, this, &CVMainWindow::transactionSetPicked);
    connect(mSetPicker, &CVSetPicker::allPicked, this, &CVMainWindow::allSetsPicked);
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(kEdge, kGap, kEdge, kGap);
    layout->setSpacing(kGap);
    layout->addWidget(mEntryStrip);
    layout->addWidget(mReadOnlyNotice);
    mReadOnlyNotice->hide();
    updateTitle();
    layout->addWidget(mMainTabView, 1);
    layout->addWidget(mSaveStatus);
    setCentralWidget(new CVScrollArea(*content, this));
    setAcceptDrops(true);
    mMenu = new CVMainMenu(*this, mTransactionsTab->table());
}

void CVMainWindow::setTransactionSets(const QStringList& names, int current, CVShownSets shownSets,
                                      const QString& recordsInto) {
    mShownSets = shownSets;
    const bool showsAll = shownSets == CVShownSets::All;
    mSetPicker->setNames(names, current, shownSets);
    mEntryStrip->sayRecordingInto(showsAll ? std::optional(recordsInto) : std::nullopt);
    mMenu->setSortsBySet(showsAll);
    updateTitle();
}

void CVMainWindow::updateTitle() {
    const bool isReadOnly = !mReadOnlyNotice->isHidden();
    if (mShownSets == CVShownSets::All)
        setWindowTitle(isReadOnly ? tr("Corvella Main Window (All Sets, Read-Only)")
                                  : tr("Corvella Main Window (All Sets)"));
    else
        setWindowTitle(isReadOnly ? tr("Corvella Main Window (Read-Only)") : tr("Corvella Main Window"));
}

void CVMainWindow::showReadOnly(const QString& why) {
    mReadOnlyNotice->setText(why);
    if (!mReadOnlyNotice->isHidden())
        return;
    mEntryStrip->hide();
    mReadOnlyNotice->show();
    updateTitle();
    mTransactionsTab->table().setFocus(Qt::OtherFocusReason);
}

void CVMainWindow::closeEvent(QCloseEvent* event) {
    commitOpenEditor();
    if (mMayClose && !mMayClose()) {
        event->ignore();
        return;
    }
    emit closing();
    event->accept();
}

void CVMainWindow::restore(const QBUserDefaults& defaults) {
    const QFontMetrics letters = fontMetrics();
    CVWindowFrame::restore(
        *this, defaults.dataForKey(kFrameKey),
        {kFirstWidthInDigits * letters.horizontalAdvance('0'), kFirstHeightInLines * letters.height()});
    mTransactionsTab->table().columnLayout().restore(defaults.dataForKey(kColumnsKey),
                                                     defaults.dataForKey(kAllSetsColumnsKey));
    mReportsTab->restoreColumns(defaults.dataForKey(kReportColumnsKey));
}

void CVMainWindow::keep(QBUserDefaults& defaults) const {
    defaults.setData(kFrameKey, saveGeometry());
    const CVTransactionColumnLayout& columns = mTransactionsTab->table().columnLayout();
    defaults.setData(kColumnsKey, columns.save(CVShownSets::Current));
    defaults.setData(kAllSetsColumnsKey, columns.save(CVShownSets::All));
    defaults.setData(kReportColumnsKey, mReportsTab->saveColumns());
}

void CVMainWindow::commitOpenEditor() {
    CVCommitOpenEditor(focusWidget());
}

bool CVMainWindow::returnToUnreadable() {
    for (CVTableView* const table : findChildren<CVTableView*>()) {
        CVFormattedField* const field = table->unreadableEditor();
        if (!field || (field == mUnreadable && field->text() == mUnreadableText))
            continue;
        mUnreadable = field;
        mUnreadableText = field->text();
        activateWindow();
        table->returnToEditor(*field);
        return true;
    }
    return false;
}

void CVMainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        emit localeChanged();
}

QString CVMainWindow::droppedFile(const QDropEvent& event) const {
    const QList<QUrl> places = event.mimeData()->urls();
    const bool isReadOnly = !mReadOnlyNotice->isHidden();
    return places.size() == 1 && !isReadOnly && !QApplication::activeModalWidget() ? places[0].toLocalFile()
                                                                                   : QString();
}

void CVMainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (droppedFile(*event).isEmpty())
        return;
    // The file stays where it is.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void CVMainWindow::dropEvent(QDropEvent* event) {
    const QString path = droppedFile(*event);
    if (path.isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    emit fileDropped(path);
}
