#include "workspace/controls/CVReadOnlyNotice.h"

#include "widgets/CVCompactButton.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QStyle>

CVReadOnlyNotice::CVReadOnlyNotice(QWidget* parent) : QWidget(parent), mText(new QLabel(this)) {
    mText->setObjectName(QStringLiteral("mReadOnlyText"));
    mText->setTextFormat(Qt::PlainText);
    mText->setWordWrap(true);
    mText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const icon = new QLabel(this);
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    icon->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(QSize(side, side), devicePixelRatio()));
    auto* const again = new CVCompactButton(tr("Tr&y Again"), this);
    again->setObjectName(QStringLiteral("mEditAgainButton"));
    again->setAccessibleName(tr("Try Again"));
    again->setToolTip(tr("Open the budget for changes if nobody else has it open by now"));
    connect(again, &QPushButton::clicked, this, &CVReadOnlyNotice::tryAgain);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(icon);
    layout->addWidget(mText, 1);
    layout->addWidget(again);
}

void CVReadOnlyNotice::setText(const QString& why) {
    const bool isNews = !mText->text().isEmpty() && mText->text() != why;
    mText->setText(why);
    if (!isNews)
        return;
    QAccessibleEvent announcement(mText, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}
