#include "preferences/CVVersionsPane.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "files/CVReplaceFile.h"
#include "format/QBLocale.h"
#include "preferences/CVPreferenceHost.h"
#include "preferences/CVPreferenceStore.h"
#include "preferences/CVWholeNumberField.h"
#include "versions/CVKeptCopy.h"
#include "versions/CVKeptName.h"
#include "versions/CVVersionFolder.h"
#include "versions/CVVersionLimit.h"
#include "widgets/CVAlerts.h"

#include <QCheckBox>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int kSmallestLimit = 1;
constexpr int kLargestLimit = 999'999;
constexpr int kSizeDigits = 1;

/// What marks the names of the kept copies, each mark once.
QString marksOf(const QStringList& keptCopies, const QString& dataFileName) {
    QStringList marks;
    for (const QString& path : keptCopies) {
        if (const auto name = CVKeptName::parse(QFileInfo(path).fileName(), dataFileName))
            marks.append(QStringLiteral("“(%1 …)”").arg(CVWordsFor(name->reason)));
    }
    marks.removeDuplicates();
    return marks.join(QStringLiteral(", "));
}

} // namespace

CVVersionsPane::CVVersionsPane(CVPreferenceStore& store, CVPreferenceHost& host, CVAlerts& alerts, QWidget* parent)
    : CVPreferencePane(store, parent)
    , mHost(host)
    , mAlerts(alerts)
    , mKeepVersions(addCheckBox(tr("&Keep earlier versions"), tr("Keep Earlier Versions"), "mKeepVersions"))
    , mLimit(new CVWholeNumberField(this, kSmallestLimit, kLargestLimit))
    , mSize(new QLineEdit(this))
    , mDelete(new QPushButton(tr("Delete &Earlier Versions…"), this)) {
    // The frame around the pane has margins.
    form().setContentsMargins(0, 0, 0, 0);
    mLimit->setObjectName(QStringLiteral("mVersionLimit"));
    mLimit->setAccessibleName(tr("Megabytes for Earlier Versions"));
    auto* const limit = new QHBoxLayout;
    limit->addWidget(mLimit);
    limit->addWidget(new QLabel(tr("MB"), this));
    limit->addStretch();
    auto* const title = new QLabel(tr("At &most:"), this);
    title->setBuddy(mLimit);
    form().addRow(title, limit);
    mSize->setObjectName(QStringLiteral("mVersionSize"));
    mSize->setAccessibleName(tr("Size of Earlier Versions"));
    mSize->setReadOnly(true);
    mSize->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    form().addRow(tr("&Now:"), mSize);
    addDeleteButton();
    connect(&mKeepVersions, &QCheckBox::clicked, this, &CVVersionsPane::keepVersions);
    connect(mLimit, &CVWholeNumberField::entered, this, &CVVersionsPane::setLimit);
    connect(mDelete, &QPushButton::clicked, this, &CVVersionsPane::deleteVersions);
}

void CVVersionsPane::addDeleteButton() {
    mDelete->setAccessibleName(tr("Delete Earlier Versions"));
    mDelete->setAutoDefault(false);
    auto* const row = new QHBoxLayout;
    row->addWidget(mDelete);
    row->addStretch();
    auto* const field = new QVBoxLayout;
    field->addLayout(row);
    addHint(*field, *mDelete,
            tr("They hold what you have removed since, also after you have cleared the data file. Where they take too "
               "much, the oldest go first."));
    form().addRow(QString(), field);
}

void CVVersionsPane::load() {
    const qint64 limit = CVVersionLimit(store().defaults());
    mKeepVersions.setChecked(limit > 0);
    mLimit->setIntegerValue(limit > 0 ? static_cast<int>(limit / kCVMegabyte) : kCVUsualVersionMegabytes);
    mLimit->setEnabled(limit > 0);
    showSize();
}

void CVVersionsPane::endEditing() {
    mLimit->endEditing();
}

/// Saves go on while the window is open, so the size is read anew whenever the user comes back to it.
bool CVVersionsPane::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::Show)
        showSize();
    return CVPreferencePane::event(event);
}

void CVVersionsPane::keepVersions(bool isOn) {
    mLimit->setEnabled(isOn);
    store().setVersionLimit(isOn ? mLimit->integerValue() : 0);
}

void CVVersionsPane::setLimit(int megabytes) {
    // The field also tells its number when the window closes, which switches nothing on.
    if (mKeepVersions.isChecked() && megabytes * kCVMegabyte != CVVersionLimit(store().defaults()))
        store().setVersionLimit(megabytes);
}

void CVVersionsPane::setMayDelete(bool mayDelete) {
    mMayDelete = mayDelete;
    showSize();
}

void CVVersionsPane::showSize() {
    const Files present = files();
    mSize->setText(present.count() == 0 ? tr("Nothing") : present.text());
    if ((present.count() == 0 || !mMayDelete) && mDelete->hasFocus())
        mKeepVersions.setFocus();
    mDelete->setEnabled(present.count() > 0 && mMayDelete);
}

std::optional<QString> CVVersionsPane::dataFile() const {
    return store().defaults().stringForKey(CVDefaultsKeys::kDataFileLocation);
}

CVVersionsPane::Files CVVersionsPane::files() const {
    Files files;
    const auto path = dataFile();
    if (!path)
        return files;
    for (const CVVersion& version : CVVersionFolder(*path).versions()) {
        ++files.versions;
        files.size += version.size;
    }
    files.keptCopies = CVKeptCopy::beside(*path);
    for (const QString& file : files.keptCopies)
        files.size += QFileInfo(file).size();
    return files;
}

QString CVVersionsPane::Files::text() const {
    const QLocale locale = QBLocaleInForce();
    const QString amount = locale.formattedDataSize(size, kSizeDigits, QLocale::DataSizeTraditionalFormat);
    return count() == 1 ? tr("%1 in 1 file").arg(amount) : tr("%1 in %2 files").arg(amount, locale.toString(count()));
}

void CVVersionsPane::deleteVersions() {
    const Files doomed = files();
    if (doomed.count() == 0 || !confirm(doomed))
        return showSize();
    // Only then no save keeps another one meanwhile. Its outcome means nothing here.
    (void)mHost.waitForSaves();
    CVFileResult result = CVVersionFolder(*dataFile()).removeAll();
    for (const QString& path : doomed.keptCopies) {
        QFile file(path);
        if (!file.remove() && file.exists() && result.ok())
            result.error = file.errorString();
    }
    showSize();
    mHost.versionsDeleted();
    if (!result.ok())
        mAlerts.run(this, {tr("Not all earlier versions were deleted"),
                           tr("%1. What is left takes %2.").arg(result.error, files().text()), tr("OK")});
}

bool CVVersionsPane::confirm(const Files& files) {
    QString message = tr("This deletes %1. What you have removed or changed until now can then not be brought back. "
                         "Your data file stays as it is.")
                          .arg(files.text());
    if (!files.keptCopies.isEmpty())
        message += QStringLiteral("\n\n") +
                   tr("Among them are files that another program wrote or that Corvella could not read, with %1 in "
                      "their names.")
                       .arg(marksOf(files.keptCopies, QFileInfo(CVFollowLinks(*dataFile())).fileName()));
    CVAlert question{tr("Do you really want to delete all earlier versions?"),
                     message + QStringLiteral("\n\n") + tr("You can't undo this action."), tr("Keep"), tr("Delete")};
    question.escapeAnswer = CVAlert::kDefault;
    question.style = CVAlert::Style::Critical;
    return mAlerts.run(this, question) == CVAlert::kAlternate;
}
