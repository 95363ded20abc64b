#include "comparing/CVLineWindow.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "comparing/CVVersionLinePane.h"
#include "format/QBLocale.h"
#include "model/CVDocument.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/CVQuietTextColour.h"
#include "widgets/CVWindowFrame.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds kChangesSettle(300);
constexpr std::chrono::milliseconds kProgressDelay(500);

} // namespace

CVLineWindow::CVLineWindow(CVDocument& document)
    : QDialog(nullptr)
    , mDocument(&document)
    , mRemark(new QLabel(this))
    , mProgress(new QLabel(this))
    , mCompare(this)
    , mShowsProgress(this) {
    // Only the main window's closing ends the program.
    setAttribute(Qt::WA_QuitOnClose, false);
    new QVBoxLayout(this);
    auto* const close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QDialog::reject);
    observe();
}

void CVLineWindow::observe() {
    mCompare.setSingleShot(true);
    mCompare.setInterval(kChangesSettle);
    connect(&mCompare, &QTimer::timeout, this, [this] { refresh(); });
    mShowsProgress.setSingleShot(true);
    mShowsProgress.setInterval(kProgressDelay);
    connect(&mShowsProgress, &QTimer::timeout, this, &CVLineWindow::showProgress);
    const QBNotificationCenter& center = mDocument->notificationCenter();
    for (const char* const name : {CVNotifications::kTransactionAddedRemoved, CVNotifications::kCategoryAddedRemoved,
                                   CVNotifications::kTransactionSet})
        center.addObserver(QLatin1String(name), this, [this](const QBNotification&) { compareSoon(); });
    center.addObserver(QLatin1String(CVNotifications::kMoneyFormatterChanged), this,
                       [this](const QBNotification&) { updateFormats(); });
}

QBoxLayout& CVLineWindow::contents() const {
    return *static_cast<QVBoxLayout*>(layout());
}

void CVLineWindow::makeLines(CVComparedWith with, const char* columnsKey, QWidget* parent) {
    mLines = new CVVersionLinePane(with, columnsKey, parent);
}

void CVLineWindow::addRemarks() {
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
    contents().addLayout(row);
    changeEvent(nullptr);
}

QHBoxLayout& CVLineWindow::addButtonRow() {
    auto* const row = new QHBoxLayout;
    contents().addLayout(row);
    return *row;
}

QPushButton& CVLineWindow::addButton(QHBoxLayout& row, const QString& text, const char* name) {
    return CVCompactButton::addTo(row, text, name, *this);
}

QString CVLineWindow::counted(qsizetype count) {
    return QBLocaleInForce().toString(count);
}

void CVLineWindow::setTextOfButton(QPushButton& button, const QString& text) {
    button.setText(text);
    button.setAccessibleName(QString(text).remove('&'));
}

void CVLineWindow::addHelpAndClose(QHBoxLayout& row, CVHelpOpener* help, const QString& page) {
    row.addStretch();
    if (help) {
        QPushButton& button = addButton(row, tr("&Help"), "mHelpButton");
        connect(&button, &QPushButton::clicked, this, [this, help, page] { help->showHelpPage(page, *this); });
        auto* const key = new QShortcut(QKeySequence::HelpContents, this);
        connect(key, &QShortcut::activated, &button, &QPushButton::click);
    }
    connect(&addButton(row, tr("&Close"), "mCloseButton"), &QPushButton::clicked, this, &QDialog::reject);
}

void CVLineWindow::restoreFrame(const char* key, int widthInDigits, int heightInLines) {
    const QSize first(widthInDigits * fontMetrics().horizontalAdvance('0'), heightInLines * fontMetrics().height());
    CVWindowFrame::restore(*this, mDocument->userDefaults().dataForKey(key), first);
}

void CVLineWindow::setDocument(CVDocument& document) {
    mDocument = &document;
    if (isVisible())
        refresh();
}

void CVLineWindow::compareSoon() {
    if (isVisible())
        mCompare.start();
}

void CVLineWindow::readingBegan() {
    mShowsProgress.start();
}

void CVLineWindow::showProgress() {
    mProgress->setText(progress(!mShowsProgress.isActive()));
}

void CVLineWindow::setRemark(const QString& remark) {
    mRemark->setText(remark);
    if (remark.isEmpty())
        return;
    QAccessibleEvent announcement(mRemark, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void CVLineWindow::done(int result) {
    keepLooks();
    stopReading();
    mCompare.stop();
    mShowsProgress.stop();
    mLines->show(nullptr);
    QDialog::done(result);
}

/// Escape clears the search first.
void CVLineWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || !mLines->clearFocusedSearch())
        QDialog::keyPressEvent(event);
}

void CVLineWindow::changeEvent(QEvent* event) {
    if (event)
        QDialog::changeEvent(event);
    if (event && event->type() != QEvent::PaletteChange)
        return;
    QPalette quiet = palette();
    quiet.setColor(QPalette::WindowText, CVQuietTextColour(palette()));
    mProgress->setPalette(quiet);
}
