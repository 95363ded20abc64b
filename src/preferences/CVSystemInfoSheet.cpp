#include "preferences/CVSystemInfoSheet.h"

#include "base/CVBundle.h"
#include "preferences/CVRichTextFormat.h"
#include "updates/CVUpdateAddress.h"
#include "updates/QBUpdateInfo.h"
#include "widgets/CVWindowFrame.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QLoggingCategory>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextCursor>
#include <QVBoxLayout>

namespace {

Q_LOGGING_CATEGORY(kLog, "corvella.updates")

constexpr int kWidthInDigits = 64;
constexpr int kHeightInLines = 22;

/// Replaces the first "<key>" in the text by `value`; false when there is none.
bool fill(QTextDocument& text, const QString& key, const QString& value) {
    QTextCursor place = text.find('<' + key + '>', 0, QTextDocument::FindCaseSensitively);
    if (place.isNull())
        return false;
    place.insertText(value);
    return true;
}

void fillRequest(QTextDocument& text) {
    const CVUpdateService service = CVUpdateService::ofBundle();
    fill(text, QStringLiteral("app_id"), service.identifier);
    fill(text, QStringLiteral("vers"), service.version);
    fill(text, QStringLiteral("app_name"), QString::fromLatin1(CVBundle::kName));
    fill(text, QStringLiteral("sys"), QBSystemVersionForUpdate());
}

} // namespace

bool CVSystemInfoSheet::show(const QString& resource, QWidget& owner) {
    QFile file(resource);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto runs = CVReadRichText(file.readAll());
    if (!runs)
        return false;
    auto* const sheet = new CVSystemInfoSheet(*owner.window());
    QTextCursor cursor(sheet->mText->document());
    for (const CVTextRun& run : *runs) {
        QTextCharFormat format;
        format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
        cursor.insertText(run.text, format);
    }
    CVFillSystemInfo(*sheet->mText->document(), QBGatherUpdateInfoInDictionary());
    fillRequest(*sheet->mText->document());
    sheet->mText->moveCursor(QTextCursor::Start);
    sheet->open();
    return true;
}

CVSystemInfoSheet::CVSystemInfoSheet(QWidget& owner) : QDialog(&owner), mText(new QTextBrowser(this)) {
    setWindowTitle(tr("What Is Sent"));
    setAttribute(Qt::WA_DeleteOnClose);
    mText->setObjectName(QStringLiteral("mLearnMoreText"));
    mText->setAccessibleName(tr("What Is Sent"));
    mText->setTabChangesFocus(true);
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(mText);
    layout->addWidget(buttons);
    const QSize wish(kWidthInDigits * fontMetrics().horizontalAdvance('0'),
                     kHeightInLines * fontMetrics().lineSpacing());
    resize(wish.boundedTo(CVWindowFrame::largestSize(owner)));
}

void CVFillSystemInfo(QTextDocument& text, const QMap<QString, QString>& values) {
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (!fill(text, value.key(), value.value()))
            qCWarning(kLog).noquote().nospace()
                << "Information is being sent that is not reported to the user: " << value.key() << " = "
                << value.value();
    }
}
