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

/// Looks for newer versions, by itself or when asked, and offers them. Requests run on a thread of their own and their
/// results are kept and announced from the main thread, so that nothing is shared and no check holds the windows up.
/// References all it is made with, which outlives it.
class CVUpdateController final : public QObject {
    Q_OBJECT

public:
    /// `sender` is whom the notification of a usable reply names.
    CVUpdateController(QBUserDefaults& defaults, QBNotificationCenter& notificationCenter, CVAlerts& alerts,
                       QObject& sender);
    ~CVUpdateController() override;

    /// Without it no page opens.
    void setURLOpener(CVURLOpener* opener) { mURLOpener = opener; }
    /// Asks another service than the bundle's, for another version.
    void setService(const CVUpdateService& service, CVFetchLimits limits);

    /// What is due at the start of the program: shows an offer that still stands, else asks the service if a day
    /// (1), a week (2) or a month (3) has gone by. Says nothing of the outcome.
    void checkAutomatically(int frequency);
    /// The user asks from that window: shows an offer that still stands, else asks the service and tells the outcome,
    /// unless the user cancels. Returns at once.
    void checkNow(QWidget& asker);

    /// Opens a web page or a mail, for that window.
    void openAddress(const QUrl& address, QWidget* asker);

signals:
    /// The user wants to change how versions are looked for.
    void preferencesRequested();

private:
    /// Whether there was an offer that still stands, and the user was asked.
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
    /// The window to which what is told belongs; none at the start, before there is a window.
    QPointer<QWidget> mAsker;
    QPointer<QProgressDialog> mProgress;
};
