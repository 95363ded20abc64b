#include "app/CVUpdateMessages.h"

#include "base/CVSite.h"

#include <QCoreApplication>

namespace CVUpdateMessages {

namespace {

struct UpdateMessagesText {
    Q_DECLARE_TR_FUNCTIONS(CVUpdateMessages)
};

QString aboutAutomaticChecks(const QString& name) {
    return UpdateMessagesText::tr(
               "%1 can automatically check for new and updated versions using its automatic update feature.  Select "
               "Update in %1 Preferences to specify how frequently to check for updates.")
        .arg(name);
}

} // namespace

CVAlert offer(const QString& name) {
    CVAlert alert{UpdateMessagesText::tr(
                      "A newer version of %1 is available from Quenby Labs LLC.  Do you want to upgrade your copy?")
                      .arg(name),
                  aboutAutomaticChecks(name), UpdateMessagesText::tr("Upgrade Now"),
                  UpdateMessagesText::tr("Change Preferences..."), UpdateMessagesText::tr("Ask Again Later")};
    alert.escapeAnswer = CVAlert::kOther;
    alert.style = CVAlert::Style::Critical;
    return alert;
}

CVAlert unreachable() {
    CVAlert alert{UpdateMessagesText::tr("Unable to check for new software"),
                  UpdateMessagesText::tr(
                      "You must be connected to the internet to check for new software.\n\nThere may be a problem with "
                      "the Quenby Labs LLC web site.\n%1")
                      .arg(CVSite::webSite()),
                  UpdateMessagesText::tr("OK")};
    alert.style = CVAlert::Style::Critical;
    return alert;
}

CVAlert upToDate(const QString& name) {
    CVAlert alert{UpdateMessagesText::tr("Your copy of %1 is up to date").arg(name), aboutAutomaticChecks(name),
                  UpdateMessagesText::tr("OK"), UpdateMessagesText::tr("Change Preferences...")};
    alert.style = CVAlert::Style::Information;
    alert.escapeAnswer = CVAlert::kDefault;
    return alert;
}

CVAlert noDownload() {
    return {UpdateMessagesText::tr("The newer version could not be found"),
            UpdateMessagesText::tr(
                "Quenby Labs LLC has named no web page from which it can be loaded. Please look for it on the web "
                "site:\n\n%1")
                .arg(CVSite::webSite()),
            UpdateMessagesText::tr("OK")};
}

} // namespace CVUpdateMessages
