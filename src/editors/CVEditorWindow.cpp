#include "editors/CVEditorWindow.h"

#include "base/QBUserDefaults.h"
#include "widgets/CVHelpOpener.h"
#include "widgets/CVWindowFrame.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

CVEditorWindow::CVEditorWindow(const QString& title, const char* frameKey, QBUserDefaults& defaults, QWidget* parent)
    : QDialog(parent)
    , mFrameKey(frameKey)
    , mDefaults(defaults)
    , mContents(new QVBoxLayout)
    , mRemark(new QLabel(this))
    , mActions(new QHBoxLayout)
    , mGeneral(new QHBoxLayout) {
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    mRemark->setObjectName(QStringLiteral("mRemark"));
    mRemark->setTextFormat(Qt::PlainText);
    mRemark->setWordWrap(true);
    // The line keeps its height, so that nothing moves when a remark of one line comes and goes.
    mRemark->setMinimumHeight(fontMetrics().height());
    mRemark->hide();
    QPushButton* const close = makeButton(tr("&Close"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    mGeneral->addWidget(close);

    auto* const buttons = new QHBoxLayout;
    buttons->addLayout(mActions);
    buttons->addStretch();
    buttons->addLayout(mGeneral);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(mContents, 1);
    layout->addWidget(mRemark);
    layout->addLayout(buttons);

    auto* const shortcut = new QShortcut(QKeySequence::Close, this);
    connect(shortcut, &QShortcut::activated, this, &QDialog::reject);
}

void CVEditorWindow::done(int result) {
    keepEntries();
    mDefaults.setData(mFrameKey, saveGeometry());
    QDialog::done(result);
}

QPushButton& CVEditorWindow::addButton(const QString& text) {
    QPushButton* const button = makeButton(text);
    mActions->addWidget(button);
    return *button;
}

void CVEditorWindow::addHelpButton(CVHelpOpener* help, const QString& page) {
    if (!help)
        return;
    QPushButton* const button = makeButton(tr("&Help"));
    connect(button, &QPushButton::clicked, this, [this, help, page] { help->showHelpPage(page, *this); });
    mGeneral->insertWidget(0, button);
}

void CVEditorWindow::restoreFrame(int widthInDigits, int heightInLines) {
    const QSize first(widthInDigits * fontMetrics().horizontalAdvance('0'), heightInLines * fontMetrics().height());
    CVWindowFrame::restore(*this, mDefaults.dataForKey(mFrameKey), first);
}

void CVEditorWindow::setRemark(const QString& remark) {
    mRemark->setText(remark);
    mRemark->show();
}

void CVEditorWindow::announceRemark() const {
    if (mRemark->text().isEmpty())
        return;
    QAccessibleEvent announcement(mRemark, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

/// Makes a button that Return does not press, because Return edits a row.
QPushButton* CVEditorWindow::makeButton(const QString& text) {
    auto* const button = new QPushButton(text, this);
    button->setAutoDefault(false);
    button->setAccessibleName(QString(text).remove('&'));
    return button;
}
