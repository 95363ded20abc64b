#include "preferences/CVUpdatePane.h"

#include "base/CVDefaultsKeys.h"
#include "base/CVNotifications.h"
#include "base/CVSite.h"
#include "base/QBNotificationCenter.h"
#include "base/QBUserDefaults.h"
#include "format/QBDateFormatter.h"
#include "preferences/CVPreferenceStore.h"
#include "preferences/CVSystemInfoSheet.h"
#include "updates/CVUpdateSchedule.h"
#include "updates/CVUpdateStore.h"
#include "widgets/CVAlerts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

/// The item of the frequencies that is shown while none is chosen.
constexpr int kWeeklyItem = CVUpdateFrequency::kWeekly - 1;

} // namespace

CVUpdatePane::CVUpdatePane(CVPreferenceStore& store, CVAlerts& alerts, QWidget* parent)
    : CVPreferencePane(store, parent)
    , mAlerts(alerts)
    , mCheckForUpdates(
          addCheckBox(tr("Check for new versions &automatically"), tr("Check Automatically"), "mCheckForUpdates"))
    , mCheckForUpdatesFreq(addPopUp(tr("How &often:"), tr("Check Frequency"), "mCheckForUpdatesFreq"))
    , mIncludeSysInfo(
          addCheckBox(tr("&Include system information"), tr("Include System Information"), "mIncludeSysInfo"))
    , mUpdateStatus(new QLineEdit(this))
    , _cv_formatForUpdateStatus(tr("Corvella last checked for updates on %1.")) {
    mCheckForUpdatesFreq.addItems({tr("Daily"), tr("Weekly"), tr("Monthly")});
    mUpdateStatus->setObjectName(QStringLiteral("mUpdateStatus"));
    mUpdateStatus->setAccessibleName(tr("Update Status"));
    mUpdateStatus->setReadOnly(true);
    mUpdateStatus->setFrame(false);
    mUpdateStatus->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // The status looks like a label, but can be selected and copied.
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    mUpdateStatus->setPalette(palette);
    form().addRow(QString(), mUpdateStatus);
    addButtons();
    connect(&mCheckForUpdates, &QCheckBox::clicked, this, &CVUpdatePane::setCheckForUpdates);
    connect(&mCheckForUpdatesFreq, &QComboBox::activated, this, &CVUpdatePane::setCheckForUpdatesFreq);
    connect(&mIncludeSysInfo, &QCheckBox::clicked, this, &CVUpdatePane::includeSysInfo);
    store.notificationCenter().addObserver(QLatin1String(CVNotifications::kCheckedForUpdates), this,
                                           [this](const QBNotification&) { checkedForUpdates(); });
}

void CVUpdatePane::addButtons() {
    auto* const checkNow = new QPushButton(tr("Check &Now"), this);
    checkNow->setAccessibleName(tr("Check Now"));
    connect(checkNow, &QPushButton::clicked, this, &CVUpdatePane::checkRequested);
    auto* const more = new QPushButton(tr("&Learn More…"), this);
    more->setAccessibleName(tr("Learn More"));
    connect(more, &QPushButton::clicked, this, [this] { learnMore(); });
    for (QPushButton* const button : {checkNow, more})
        button->setAutoDefault(false);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(checkNow);
    buttons->addWidget(more);
    buttons->addStretch();
    form().addRow(QString(), buttons);
}

void CVUpdatePane::load() {
    const int frequency = store().defaults().integerForKey(CVDefaultsKeys::kCheckUpdatesAutomatically);
    const bool isOn = frequency > CVUpdateFrequency::kNever;
    mCheckForUpdates.setChecked(isOn);
    mCheckForUpdatesFreq.setCurrentIndex(isOn && frequency <= mCheckForUpdatesFreq.count() ? frequency - 1
                                                                                           : kWeeklyItem);
    mCheckForUpdatesFreq.setEnabled(isOn);
    mIncludeSysInfo.setChecked(store().defaults().boolForKey(CVDefaultsKeys::kIncludeSysInfo));
    checkedForUpdates();
}

void CVUpdatePane::setCheckForUpdates(bool isOn) {
    mCheckForUpdatesFreq.setEnabled(isOn);
    store().setInteger(CVDefaultsKeys::kCheckUpdatesAutomatically,
                       isOn ? mCheckForUpdatesFreq.currentIndex() + 1 : CVUpdateFrequency::kNever,
                       CVPreferenceStore::Change::Announced);
}

void CVUpdatePane::setCheckForUpdatesFreq(int index) {
    store().setInteger(CVDefaultsKeys::kCheckUpdatesAutomatically, index + 1, CVPreferenceStore::Change::Announced);
}

void CVUpdatePane::includeSysInfo(bool isOn) {
    store().setBool(CVDefaultsKeys::kIncludeSysInfo, isOn, CVPreferenceStore::Change::Announced);
}

void CVUpdatePane::learnMore(const QString& resource) {
    if (CVSystemInfoSheet::show(resource, *this))
        return;
    CVAlert alert{tr("Could not load SystemInfo.rtf file"),
                  tr("The SystemInfo.rtf file should be included in the application.  The application may have become "
                     "corrupted.  You should download a fresh copy from %1")
                      .arg(CVSite::webSite()),
                  tr("OK")};
    alert.style = CVAlert::Style::Critical;
    mAlerts.run(this, alert);
}

void CVUpdatePane::checkedForUpdates() {
    const QDateTime time = CVTimeOfLastUpdateCheck(store().defaults()).toLocalTime();
    if (!time.isValid()) {
        mUpdateStatus->setText(tr("Corvella has never checked for updates."));
        return;
    }
    const QString shown = tr("%1 %2").arg(QBDateFormatter().string(QBDate::dateWithNSDate(time)),
                                          QBDateLocaleInForce().toString(time.time(), QLocale::ShortFormat));
    mUpdateStatus->setText(_cv_formatForUpdateStatus.arg(shown));
    mUpdateStatus->setCursorPosition(0);
}
