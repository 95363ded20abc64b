#include "workspace/controls/CVSaveStatus.h"

#include "widgets/CVElidedLabel.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <chrono>

namespace {

/// The minimum time for which an attempt is shown, because a user does not see a shorter one.
constexpr std::chrono::milliseconds kAttemptShown(500);
/// A disk that takes longer to save does not answer.
constexpr std::chrono::seconds kUsualSave(10);

void announce(QLabel& label) {
    QAccessibleEvent announcement(&label, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

} // namespace

CVSaveStatus::CVSaveStatus(QWidget* parent)
    : QWidget(parent)
    , mRemark(new CVElidedLabel(this))
    , mShowVersions(new QPushButton(tr("Sho&w…"), this))
    , mShowOtherFile(new QPushButton(tr("Sho&w…"), this))
    , mTakeBack(new QPushButton(tr("Ta&ke Back"), this))
    , mIcon(new QLabel(this))
    , mText(new QLabel(this))
    , mMakeRoom(new QPushButton(tr("Delete Earlier Versions…"), this))
    , mTryAgain(new QPushButton(tr("Tr&y Again"), this))
    , mAttempt(this)
    , mSlow(this) {
    mRemark->setObjectName(QStringLiteral("mRemark"));
    mRemark->hide();
    mShowVersions->setObjectName(QStringLiteral("mShowVersionsButton"));
    mShowVersions->setAccessibleName(tr("Show Earlier Versions"));
    mShowVersions->setToolTip(tr("Show the earlier versions of your budget and bring back what is missing"));
    mShowOtherFile->setObjectName(QStringLiteral("mShowOtherFileButton"));
    mShowOtherFile->setAccessibleName(tr("Show Changes from Elsewhere"));
    mShowOtherFile->setToolTip(tr("Show what the other file says, and bring into your budget what is missing"));
    mTakeBack->setObjectName(QStringLiteral("mTakeBackButton"));
    mTakeBack->setAccessibleName(tr("Take Back Import"));
    mTakeBack->setToolTip(tr("Take the imported transactions out of your budget again"));
    show(Offer::Nothing);
    mText->setObjectName(QStringLiteral("mSaveStatusText"));
    mText->setTextFormat(Qt::PlainText);
    mText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mMakeRoom->setObjectName(QStringLiteral("mMakeRoomButton"));
    mMakeRoom->setAccessibleName(tr("Delete Earlier Versions"));
    mTryAgain->setObjectName(QStringLiteral("mTryAgainButton"));
    mTryAgain->setAccessibleName(tr("Try Again"));

    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mRemark);
    layout->addWidget(mShowVersions);
    layout->addWidget(mShowOtherFile);
    layout->addWidget(mTakeBack);
    layout->addWidget(mIcon);
    layout->addWidget(mText, 1);
    layout->addWidget(mMakeRoom);
    layout->addWidget(mTryAgain);
    mAttempt.setSingleShot(true);
    mAttempt.setInterval(kAttemptShown);
    connect(&mAttempt, &QTimer::timeout, this, &CVSaveStatus::showFailure);
    mSlow.setSingleShot(true);
    mSlow.setInterval(kUsualSave);
    connect(&mSlow, &QTimer::timeout, this, [this] {
        show(tr("Still saving: the disk does not answer"), Outcome::Saving);
        announce(*mText);
    });
    connect(mShowVersions, &QPushButton::clicked, this, &CVSaveStatus::versionsRequested);
    connect(mShowOtherFile, &QPushButton::clicked, this, &CVSaveStatus::otherFileRequested);
    connect(mTakeBack, &QPushButton::clicked, this, &CVSaveStatus::takeBackRequested);
    connect(mTryAgain, &QPushButton::clicked, this, [this] {
        mAttempt.start();
        emit tryAgain();
    });
    connect(mMakeRoom, &QPushButton::clicked, this, &CVSaveStatus::makeRoom);
    show(QString(), Outcome::Fine);
}

void CVSaveStatus::setSaving() {
    mFailure.clear();
    // A further request does not make the first one younger.
    if (mSlow.isActive())
        return;
    mSlow.start();
    show(tr("Saving…"), Outcome::Saving);
}

void CVSaveStatus::setSaved() {
    mFailure.clear();
    mSlow.stop();
    show(tr("All changes saved"), Outcome::Fine);
    showTakeBack();
}

void CVSaveStatus::setUnknown() {
    // A failure that is shown stays true.
    if (mFailure.isEmpty() && !mSlow.isActive())
        show(QString(), Outcome::Fine);
}

void CVSaveStatus::setFailed(const QString& reason, MakeRoom makeRoom) {
    mSlow.stop();
    mRoomHelps = makeRoom;
    mFailure = tr("Not saved: %1").arg(reason);
    if (!mAttempt.isActive())
        showFailure();
}

void CVSaveStatus::showFailure() {
    if (mFailure.isEmpty())
        return;
    show(mFailure, Outcome::Failed);
    mRemark->hide();
    show(Offer::Nothing);
    announce(*mText);
}

void CVSaveStatus::show(Offer offer) {
    mShowVersions->setVisible(offer == Offer::Versions);
    mShowOtherFile->setVisible(offer == Offer::OtherFile);
    mOffer = offer;
    showTakeBack();
}

/// Beside another remark the button says what it takes back.
void CVSaveStatus::showTakeBack() {
    mTakeBack->setText(mOffer == Offer::TakeBack ? tr("Ta&ke Back") : tr("Ta&ke Back Import"));
    mTakeBack->setVisible(mOffer == Offer::TakeBack || (mCanTakeBack && mFailure.isEmpty()));
}

void CVSaveStatus::setCanTakeBack(bool can) {
    mCanTakeBack = can;
    showTakeBack();
}

void CVSaveStatus::remark(const QString& text, Offer offer) {
    mRemark->setText(text);
    mRemark->show();
    show(offer);
    announce(*mRemark);
}

void CVSaveStatus::show(const QString& text, Outcome outcome) {
    const bool failed = outcome == Outcome::Failed;
    QFont font = mText->font();
    font.setBold(failed);
    mText->setFont(font);
    // The text of a failure begins next to its icon.
    mText->setAlignment((failed ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    // Only a failure has a long text; where there is little room, a remark gives way to a short one.
    mText->setWordWrap(failed);
    mText->setText(text);
    if (failed) {
        const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
        const QIcon warning = style()->standardIcon(QStyle::SP_MessageBoxWarning);
        mIcon->setPixmap(warning.pixmap(QSize(side, side), devicePixelRatio()));
    }
    mIcon->setVisible(failed);
    // While the next attempt runs the buttons stay, and with them the focus.
    if (outcome == Outcome::Saving)
        return;
    mTryAgain->setVisible(failed);
    mMakeRoom->setVisible(failed && mRoomHelps == MakeRoom::Yes);
}
