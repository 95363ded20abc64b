#include "preferences/CVDataFilePane.h"

#include "base/CVBundle.h"
#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "files/CVFileSignature.h"
#include "model/CVDocument.h"
#include "preferences/CVPreferenceHost.h"
#include "preferences/CVPreferenceStore.h"
#include "preferences/CVVersionsPane.h"
#include "widgets/CVFilePanels.h"
#include "widgets/CVLeadToWaitingWindow.h"

#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

namespace {

/// The folder with "~" for the user's home.
QString abbreviated(const QString& folder) {
    const QString home = QDir::homePath();
    if (folder != home && !folder.startsWith(home + '/'))
        return QDir::toNativeSeparators(folder);
    return QDir::toNativeSeparators('~' + folder.sliced(home.size()));
}

} // namespace

CVDataFilePane::CVDataFilePane(CVPreferenceStore& store, CVDocument& document, CVPreferenceHost& host, CVAlerts& alerts,
                               CVFilePanels& panels, QWidget* parent)
    : CVPreferencePane(store, parent)
    , mDocument(&document)
    , mHost(host)
    , mAlerts(alerts)
    , mPanels(panels)
    , mDataFileLocation(new QLineEdit(this))
    , mVersions(new CVVersionsPane(store, host, alerts, this)) {
    mDataFileLocation->setObjectName(QStringLiteral("mDataFileLocation"));
    mDataFileLocation->setAccessibleName(tr("Data File Location"));
    mDataFileLocation->setReadOnly(true);
    mDataFileLocation->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    form().addRow(tr("Your data file is &in:"), mDataFileLocation);
    auto* const change = addButton(
        tr("Change &Location…"), tr("Change Location"),
        tr("The file at the old place stays there unchanged. If the one at the new place is missing when Corvella "
           "starts, it asks before it opens any other."));
    connect(change, &QPushButton::clicked, this, &CVDataFilePane::changeFileLocation);
    mClear = addButton(tr("Clear &Data File…"), tr("Clear Data File"),
                       tr("Removes all transactions and brings the default categories back."));
    connect(mClear, &QPushButton::clicked, this, &CVDataFilePane::clearDataFile);
    auto* const versions = new QGroupBox(tr("Earlier Versions"), this);
    auto* const inside = new QVBoxLayout(versions);
    inside->addWidget(mVersions);
    form().addRow(versions);
    updateButtons();
}

QPushButton* CVDataFilePane::addButton(const QString& text, const QString& name, const QString& hint) {
    auto* const button = new QPushButton(text, this);
    button->setAccessibleName(name);
    button->setAutoDefault(false);
    auto* const row = new QHBoxLayout;
    row->addWidget(button);
    row->addStretch();
    auto* const field = new QVBoxLayout;
    field->addLayout(row);
    addHint(*field, *button, hint);
    form().addRow(QString(), field);
    return button;
}

void CVDataFilePane::setDocument(CVDocument& document) {
    mDocument = &document;
    updateButtons();
}

void CVDataFilePane::updateButtons() {
    const bool canEdit = !mDocument->isReadOnly();
    mClear->setEnabled(canEdit);
    mVersions->setMayDelete(canEdit);
}

void CVDataFilePane::load() {
    updateButtons();
    _cv_set_file_location_field();
    mVersions->load();
}

void CVDataFilePane::endEditing() {
    mVersions->endEditing();
}

void CVDataFilePane::changeFileLocation() {
    if (CVLeadToWaitingWindow())
        return;
    const auto path = choosePath();
    const auto present = store().defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    if (!path || (present && CVIsSameFile(*path, *present)))
        return;
    const bool isThere = QFileInfo(*path).isFile();
    if (mDocument->isReadOnly())
        return openElsewhere(*path, isThere);
    if (!isThere)
        return _cv_change_document_path(*path, Replace::Yes);
    switch (askWhatToUse(QFileInfo(*path).path())) {
    case CVAlert::kDefault:
        return _cv_change_document_path(*path, Replace::No);
    case CVAlert::kOther:
        return _cv_change_document_path(*path, Replace::Yes);
    case CVAlert::kAlternate:
    case CVAlert::kFurther:
        return;
    }
}

void CVDataFilePane::openElsewhere(const QString& path, bool isThere) {
    const QString folder = abbreviated(QFileInfo(path).path());
    CVAlert alert = isThere ? CVAlert{tr("Open the budget in that folder?"),
                                      tr("There is a Corvella data file at “%1”. Corvella opens it from now on. The "
                                         "budget that is open read-only stays where it is.")
                                          .arg(folder),
                                      tr("Open"), tr("Cancel")}
                            : CVAlert{tr("Start a new budget in that folder?"),
                                      tr("There is no Corvella data file at “%1”. The budget that is open read-only is "
                                         "not moved there: it stays where it is. You can start a new, empty one there.")
                                          .arg(folder),
                                      tr("Start New Budget"), tr("Cancel")};
    alert.style = CVAlert::Style::Information;
    if (mAlerts.run(this, alert) != CVAlert::kDefault)
        return;
    useDocument(path, isThere);
    _cv_set_file_location_field();
}

std::optional<QString> CVDataFilePane::choosePath() {
    const auto present = store().defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    const QString start = present && QFileInfo(*present).isFile() ? QFileInfo(*present).path() : QString();
    const auto folder =
        mPanels.chooseFolder(*window(), {tr("Choose a Folder for Your Data File"), tr("Choose"), start});
    if (!folder)
        return std::nullopt;
    return QDir(*folder).absoluteFilePath(QString::fromLatin1(CVBundle::kDataFileName));
}

CVAlert::Answer CVDataFilePane::askWhatToUse(const QString& folder) {
    CVAlert alert{
        tr("Corvella file already exists"),
        tr("There is already a Corvella data file at '%1'.\n\nWould you like to use this file instead of your "
           "current data, replace this file with your current data, or cancel and choose a different folder?")
            .arg(abbreviated(folder)),
        tr("Use Chosen File"), tr("Cancel"), tr("Replace Chosen File")};
    alert.style = CVAlert::Style::Information;
    return mAlerts.run(this, alert);
}

void CVDataFilePane::_cv_change_document_path(const QString& path, Replace replace) {
    if (replace == Replace::Yes)
        moveDocument(path);
    else
        useDocument(path);
    _cv_set_file_location_field();
}

void CVDataFilePane::moveDocument(const QString& path) {
    if (!mHost.claimPlace(path, CVPreferenceHost::PlaceUse::Replaced, *this))
        return;
    const auto settle = qScopeGuard([this] { mHost.settlePlace(); });
    // The main window was usable while the user was asked, and may have opened a modal window.
    if (CVLeadToWaitingWindow())
        return;
    const auto former = store().defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    if (!keepLocation(path, former))
        return;
    // The file at the new place may be one that this program knows and is about to replace.
    mDocument->askForVersion(CVVersionReason::Move);
    mDocument->workbookSave();
    const QString failure = mHost.waitForSaves();
    if (failure.isEmpty())
        return moveVersions(former.value_or(QString()), path);
    store().setDataFileLocation(former);
    // The budget is saved again in its old place, so that the main window's save status is true for the file in use.
    if (former)
        mDocument->workbookSave();
    mAlerts.run(this, {tr("Your data file was not moved"),
                       failure + u' ' + tr("Corvella keeps your budget where it was."), tr("OK")});
}

void CVDataFilePane::moveVersions(const QString& from, const QString& to) {
    const QString failure = from.isEmpty() ? QString() : mHost.moveVersions(from, to);
    if (!failure.isEmpty())
        mAlerts.run(this, {tr("Something of your budget is still in the old place"),
                           failure + u' ' +
                               tr("Your data file is in its new place. Nothing is lost: what could not be moved is "
                                  "where the file was."),
                           tr("OK")});
}

void CVDataFilePane::useDocument(const QString& path, bool isThere) {
    if (CVLeadToWaitingWindow() || !mHost.claimPlace(path, CVPreferenceHost::PlaceUse::Opened, *this))
        return;
    const auto settle = qScopeGuard([this] { mHost.settlePlace(); });
    // The main window was usable while the user was asked, and may have opened a modal window.
    if (CVLeadToWaitingWindow())
        return;
    const QString unsaved = mHost.waitForSaves();
    if (!unsaved.isEmpty()) {
        mAlerts.run(this, {tr("Your last changes are not saved"),
                           unsaved + u' ' + tr("They would be lost, so the other file is not used yet."), tr("OK")});
        return;
    }
    const auto former = store().defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    if (!keepLocation(path, former))
        return;
    if (!isThere)
        return mHost.startNewDocument();
    const auto failure = mHost.reopenDocument();
    if (!failure)
        return;
    store().setDataFileLocation(former);
    if (failure->isEmpty())
        return;
    mAlerts.run(this,
                {tr("The other file could not be read"),
                 tr("“%1” could not be read: %2.\n\nThe file is untouched. Corvella keeps the budget that is open.")
                     .arg(QDir::toNativeSeparators(path), *failure),
                 tr("OK")});
}

/// Stores the new location; false after an alert when the settings cannot be saved. Without the stored location the
/// next start would open the file in the old place.
bool CVDataFilePane::keepLocation(const QString& path, const std::optional<QString>& former) {
    if (store().setDataFileLocation(path))
        return true;
    store().setDataFileLocation(former);
    mAlerts.run(this,
                {tr("Your data file was not moved"),
                 tr("Your settings cannot be saved, so Corvella would look for it in the old place at the next start. "
                    "Make room on the disk, or make the settings writable, and try again."),
                 tr("OK")});
    return false;
}

void CVDataFilePane::clearDataFile() {
    if (CVLeadToWaitingWindow())
        return;
    CVAlert first{
        tr("Are you sure you want to clear your Corvella data file?"),
        tr("Clearing your data file will remove ALL transactions and reset the category list to the defaults.  "
           "You can't undo this action."),
        tr("No"), tr("Yes")};
    first.escapeAnswer = CVAlert::kDefault;
    first.style = CVAlert::Style::Critical;
    if (mAlerts.run(this, first) != CVAlert::kAlternate)
        return;
    CVAlert second{tr("Are you REALLY sure you want to clear your Corvella data file?"),
                   tr("If you continue, your Corvella data will be lost and you will have to start over.  This is "
                      "your last chance to stop."),
                   tr("Yes, Continue"), tr("No, Stop!")};
    second.style = CVAlert::Style::Critical;
    // The main window was usable during the alert and may have opened a modal window.
    if (mAlerts.run(this, second) != CVAlert::kDefault || CVLeadToWaitingWindow())
        return;
    const auto transactions = static_cast<int>(mDocument->transactions().size());
    mDocument->reset_to_default_info();
    store().announce();
    emit cleared(transactions);
    if (const QString failure = mHost.waitForSaves(); !failure.isEmpty()) {
        mAlerts.run(this, {tr("Corvella data not cleared in the file"),
                           failure + u' ' + tr("The file still holds your data until a save succeeds."), tr("OK")});
        return;
    }
    CVAlert done{tr("Corvella data cleared"),
                 tr("Your Corvella data has been cleared.  The category list has been reset to the default list."),
                 tr("OK")};
    done.style = CVAlert::Style::Information;
    mAlerts.run(this, done);
}

void CVDataFilePane::_cv_set_file_location_field() {
    const auto path = store().defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
    const bool isThere = path && QFileInfo(*path).isFile();
    mDataFileLocation->setText(isThere ? abbreviated(QFileInfo(*path).path()) : tr("Not set"));
    mDataFileLocation->setToolTip(isThere ? QDir::toNativeSeparators(*path) : QString());
    mDataFileLocation->setCursorPosition(0);
    mVersions->showSize();
}
