#include "app/CVUpdateController.h"

#include "app/CVUpdateMessages.h"
#include "base/CVBundle.h"
#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "updates/CVUpdateSchedule.h"
#include "widgets/CVProgressDelay.h"
#include "widgets/CVURLOpener.h"

#include <QProgressDialog>

#include <chrono>

namespace {

/// A check that ends within this time shows no progress, because nobody could read it.
constexpr std::chrono::milliseconds kBeforeProgress(kCVProgressDelay);

const QString kName = QString::fromLatin1(CVBundle::kName);

} // namespace

CVUpdateController::CVUpdateController(QBUserDefaults& defaults, QBNotificationCenter& notificationCenter,
                                       CVAlerts& alerts, QObject& sender)
    : mDefaults(defaults)
    , mNotificationCenter(notificationCenter)
    , mAlerts(alerts)
    , mSender(sender) {
    setService(CVUpdateService::ofBundle(), {});
}

CVUpdateController::~CVUpdateController() {
    delete mProgress;
}

void CVUpdateController::setService(const CVUpdateService& service, CVFetchLimits limits) {
    mService = service;
    mAutomaticCheck = std::make_unique<CVUpdateCheck>(limits);
    mManualCheck = std::make_unique<CVUpdateCheck>(limits);
    connect(mAutomaticCheck.get(), &CVUpdateCheck::finished, this, &CVUpdateController::keepReply);
    connect(mManualCheck.get(), &CVUpdateCheck::finished, this, [this](const QByteArray& reply) {
        delete mProgress;
        keepReply(reply);
        tellOutcome();
    });
}

void CVUpdateController::checkAutomatically(int frequency) {
    if (frequency == CVUpdateFrequency::kNever || CVOfferUpgrade())
        return;
    const QDateTime last = CVTimeOfLastUpdateCheck(mDefaults);
    // A time that cannot be read counts as none, so that a check is made and stores a readable one.
    const auto lastDay = last.isValid() ? std::optional(QBDate::dateWithNSDate(last)) : std::nullopt;
    if (CVUpdateIsDue(lastDay, QBDate::date(), frequency) && !mAutomaticCheck->isRunning())
        request(*mAutomaticCheck);
}

void CVUpdateController::checkNow(QWidget& asker) {
    if (mManualCheck->isRunning())
        return;
    mAsker = &asker;
    if (CVOfferUpgrade())
        return;
    showProgress();
    request(*mManualCheck);
}

void CVUpdateController::openAddress(const QUrl& address, QWidget* asker) {
    if (mURLOpener)
        mURLOpener->openURL(address, asker);
}

bool CVUpdateController::CVOfferUpgrade() {
    const auto offer = store().currentOffer();
    if (!offer)
        return false;
    switch (mAlerts.run(mAsker, CVUpdateMessages::offer(kName))) {
    case CVAlert::kDefault:
        upgrade(*offer);
        break;
    case CVAlert::kAlternate:
        emit preferencesRequested();
        break;
    case CVAlert::kOther:
    case CVAlert::kFurther:
        break;
    }
    return true;
}

/// Removes the offer even when it names no page, because no check would replace a stored offer.
void CVUpdateController::upgrade(const CVUpdateEntry& offer) {
    if (const auto address = CVDownloadAddressOfEntry(offer))
        openAddress(*address, mAsker);
    else
        mAlerts.run(mAsker, CVUpdateMessages::noDownload());
    store().removeOffer();
}

void CVUpdateController::request(CVUpdateCheck& check) const {
    const bool includeSysInfo = mDefaults.boolForKey(CVDefaultsKeys::kIncludeSysInfo);
    check.start(CVMakeUpdateAddress(mService, includeSysInfo ? CVSystemInfo::Included : CVSystemInfo::Omitted),
                kName + '/' + mService.version);
}

void CVUpdateController::keepReply(const QByteArray& reply) {
    if (store().keepReply(reply, QDateTime::currentDateTime()))
        mNotificationCenter.postNotification(QLatin1String(CVNotifications::kCheckedForUpdates), &mSender);
}

void CVUpdateController::tellOutcome() {
    if (store().lastCheckFailed())
        mAlerts.run(mAsker, CVUpdateMessages::unreachable());
    else if (!CVOfferUpgrade() && mAlerts.run(mAsker, CVUpdateMessages::upToDate(kName)) == CVAlert::kAlternate)
        emit preferencesRequested();
}

void CVUpdateController::showProgress() {
    delete mProgress;
    mProgress = new QProgressDialog(tr("Looking for a newer version…"), tr("Cancel"), 0, 0, mAsker);
    mProgress->setWindowTitle(kName);
    mProgress->setWindowModality(Qt::WindowModal);
    mProgress->setAutoReset(false);
    mProgress->setMinimumDuration(static_cast<int>(kBeforeProgress.count()));
    // QProgressDialog measures the duration from the first value on.
    mProgress->setValue(0);
    mProgress->setAttribute(Qt::WA_QuitOnClose, false);
    // Closing the dialog in any way cancels the check.
    const auto stop = [this] {
        mManualCheck->cancel();
        mProgress->deleteLater();
    };
    connect(mProgress, &QProgressDialog::canceled, this, stop);
    connect(mProgress, &QDialog::finished, this, stop);
}
