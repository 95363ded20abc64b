#include "help/CVHelpWindow.h"

#include "base/QBUserDefaults.h"
#include "help/CVHelpBook.h"
#include "help/CVHelpPage.h"
#include "help/CVHelpSearch.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/CVWindowFrame.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QLineEdit>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QToolButton>
#include <QWindow>

namespace {

constexpr const char* kFrameKey = "Help Window";
constexpr const char* kSplitterKey = "Help Window Splitter";
constexpr int kWidthInDigits = 132;
constexpr int kHeightInLines = 42;
constexpr int kFindersInDigits = 34;
/// The largest share of the window that contents, index and search may have.
constexpr double kMostShareOfFinders = 0.4;

} // namespace

CVHelpWindow::CVHelpWindow(const CVHelpBook& book, QBUserDefaults& defaults)
    : mBook(book)
    , mDefaults(defaults)
    , mSplitter(new QSplitter(this))
    , mFinders(new QTabWidget(mSplitter))
    , mPage(new CVHelpPage(book, mSplitter)) {
    setWindowTitle(tr("Corvella Help"));
    // Only the main window's closing ends the program, even while the help is open.
    setAttribute(Qt::WA_QuitOnClose, false);
    CVSetAccessibleName(*mFinders, tr("Find in Help"));
    mPage->setAccessibleName(tr("Help Page"));
    mSplitter->setStretchFactor(1, 1);
    mSplitter->setChildrenCollapsible(false);
    auto* const content = new QWidget(this);
    setCentralWidget(content);
    auto* const layout = new QVBoxLayout(content);
    layout->addLayout(makeCommands());
    layout->addWidget(mSplitter, 1);
    addContents();
    addIndex();
    addSearch();
    addShortcuts();
    restoreFrame();
    connect(mPage, &QTextBrowser::sourceChanged, this, &CVHelpWindow::selectInContents);
    connect(mPage, &CVHelpPage::webPageRequested, this, &CVHelpWindow::webPageRequested);
}

void CVHelpWindow::showPage(const QUrl& address) {
    mPage->go(address);
    // A modal window blocks all windows but its own, so the help becomes a transient window of the modal one.
    const QWidget* const modal = QApplication::activeModalWidget();
    winId();
    windowHandle()->setTransientParent(modal ? modal->windowHandle() : nullptr);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    mPage->setFocus();
}

void CVHelpWindow::closeEvent(QCloseEvent* event) {
    mDefaults.setData(kFrameKey, saveGeometry());
    mDefaults.setData(kSplitterKey, mSplitter->saveState());
    QWidget::closeEvent(event);
}

QBoxLayout* CVHelpWindow::makeCommands() {
    auto* const commands = new QHBoxLayout;
    const auto add = [this, commands](const QString& text, QStyle::StandardPixmap icon, const QKeySequence& key) {
        auto* const action = new QAction(style()->standardIcon(icon), text, this);
        action->setShortcut(key);
        action->setToolTip(tr("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
        auto* const button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setFocusPolicy(Qt::TabFocus);
        commands->addWidget(button);
        return action;
    };
    QAction* const back = add(tr("Back"), QStyle::SP_ArrowBack, Qt::ALT | Qt::Key_Left);
    QAction* const forward = add(tr("Forward"), QStyle::SP_ArrowForward, Qt::ALT | Qt::Key_Right);
    QAction* const home = add(tr("Home"), QStyle::SP_DirHomeIcon, Qt::ALT | Qt::Key_Home);
    commands->addStretch();
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, mPage, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, mPage, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, [this] { mPage->go(mBook.page(CVHelpBook::kStartPage)); });
    connect(mPage, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(mPage, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    return commands;
}

void CVHelpWindow::addShortcuts() {
    for (const QKeySequence& key : {QKeySequence(Qt::Key_Escape), QKeySequence(Qt::CTRL | Qt::Key_W)})
        connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        mFinders->setCurrentWidget(mSearch);
        mSearch->focusField();
    });
}

void CVHelpWindow::addContents() {
    mContents = mBook.engine().contentWidget();
    mContents->setAccessibleName(tr("Contents"));
    mFinders->addTab(mContents, tr("&Contents"));
    connect(mContents, &QHelpContentWidget::linkActivated, mPage, &CVHelpPage::go);
    connect(mBook.engine().contentModel(), &QHelpContentModel::contentsCreated, this, [this] {
        // The contents show the pages; their sections stay folded.
        mContents->expandToDepth(0);
        selectInContents(mPage->source());
    });
}

void CVHelpWindow::addIndex() {
    auto* const index = new QWidget(mFinders);
    auto* const field = new QLineEdit(index);
    field->setAccessibleName(tr("Index Entry"));
    field->setPlaceholderText(tr("Beginning of an entry"));
    field->setClearButtonEnabled(true);
    QHelpIndexWidget* const entries = mBook.engine().indexWidget();
    entries->setAccessibleName(tr("Index"));
    auto* const layout = new QVBoxLayout(index);
    layout->addWidget(field);
    layout->addWidget(entries, 1);
    mFinders->addTab(index, tr("&Index"));

    connect(field, &QLineEdit::textChanged, entries, [entries](const QString& text) { entries->filterIndices(text); });
    connect(field, &QLineEdit::returnPressed, entries, &QHelpIndexWidget::activateCurrentItem);
    connect(entries, &QHelpIndexWidget::documentActivated, mPage,
            [this](const QHelpLink& link) { mPage->go(link.url); });
    // An entry with several pages opens the first of them.
    connect(entries, &QHelpIndexWidget::documentsActivated, mPage,
            [this](const QList<QHelpLink>& links) { mPage->go(links.constFirst().url); });
}

void CVHelpWindow::addSearch() {
    mSearch = new CVHelpSearch(mBook, mFinders);
    mFinders->addTab(mSearch, tr("&Search"));
    connect(mSearch, &CVHelpSearch::pageChosen, this, &CVHelpWindow::goToFound);
}

void CVHelpWindow::selectInContents(const QUrl& address) {
    const QModelIndex item = mContents->indexOf(address);
    if (item.isValid())
        mContents->setCurrentIndex(item);
}

/// Shows the page at the first place where the word occurs.
void CVHelpWindow::goToFound(const QUrl& address, const QString& word) {
    mPage->go(address);
    mPage->moveCursor(QTextCursor::Start);
    mPage->find(word);
}

void CVHelpWindow::restoreFrame() {
    const int digit = fontMetrics().horizontalAdvance('0');
    CVWindowFrame::restore(*this, mDefaults.dataForKey(kFrameKey),
                           {kWidthInDigits * digit, kHeightInLines * fontMetrics().height()});
    const int finders = qMin(kFindersInDigits * digit, qRound(width() * kMostShareOfFinders));
    if (!mSplitter->restoreState(mDefaults.dataForKey(kSplitterKey)))
        mSplitter->setSizes({finders, width() - finders});
}
