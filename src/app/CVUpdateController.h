#pragma once

#include "updates/CVUpdateAddress.h"
#include "updates/CVUpdateCheck.h"
#include "updates/CVUpdateStore.h"

#include <QPointer>

#include <memory>

class CVAlerts;
class CVURLOpener;
class QBNotificationCenter;
class QBUserDefaults;
class QProgressDialog;

/// Checks for newer versions, automatically or when the user asks, and offers them. Requests run on their own threads,
/// so that no check blocks the windows; their results are stored and announced in the main thread, so that threads
/// share nothing. References its constructor's arguments, which outlive it.
class CVUpdateController final : public QObject {
    Q_OBJECT

public:
    /// `sender` is the object that the notification of a usable reply names.
    CVUpdateController(QBUserDefaults& defaults, QBNotificationCenter& notificationCenter, CVAlerts& alerts,
                       QObject& sender);
    ~CVUpdateController() override;

    /// Without an opener no page opens.
    void setURLOpener(CVURLOpener* opener) { mURLOpener = opener; }
    /// Replaces the service and the version that CVUpdateService::ofBundle() gave.
    void setService(const CVUpdateService& service, CVFetchLimits limits);

    /// Does what is due at the start of the program: shows an offer that is still valid, else asks the service if a day
    /// (1), a week (2) or a month (3) has passed. Does not tell the outcome.
    void checkAutomatically(int frequency);
    /// Checks for the user, in front of the window `asker`: shows an offer that is still valid, else asks the service
    /// and tells the outcome, unless the user cancels. Returns at once.
    void checkNow(QWidget& asker);

    /// Opens a web page or a mail for the window `asker`.
    void openAddress(const QUrl& address, QWidget* asker);

signals:
    /// The user wants to change the preferences of automatic checks.
    void preferencesRequested();

private:
    /// Asks the user when there is an offer that is still valid; whether there was one.
    bool CVOfferUpgrade();
    void upgrade(const CVUpdateEntry& offer);
    [[nodiscard]] CVUpdateStore store() const { return {mDefaults, mService.version}; }
    void request(CVUpdateCheck& check) const;
    void keepReply(const QByteArray& reply);
    void tellOutcome();
    void showProgress();

    QBUserDefaults& mDefaults;
    QBNotificationCenter& mNotificationCenter;
    CVAlerts& mAlerts;
    QObject& mSender;
    CVURLOpener* mURLOpener = nullptr;
    CVUpdateService mService;
    std::unique_ptr<CVUpdateCheck> mAutomaticCheck;
    std::unique_ptr<CVUpdateCheck> mManualCheck;
    /// The window in front of which the outcome is told; null at the start, before there is a window.
    QPointer<QWidget> mAsker;
    QPointer<QProgressDialog> mProgress;
};
