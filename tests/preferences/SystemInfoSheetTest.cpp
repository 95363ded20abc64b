#include "PreferencesFixture.h"
#include "base/CVBundle.h"
#include "base/CVSite.h"
#include "preferences/CVSystemInfoSheet.h"
#include "preferences/CVUpdatePane.h"
#include "updates/CVUpdateAddress.h"
#include "updates/QBUpdateInfo.h"

#include <QDialog>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrlQuery>

namespace {

class SystemInfoSheet : public PreferencesFixture {
protected:
    [[nodiscard]] QTextBrowser* text() const { return mWindow->findChild<QTextBrowser*>("mLearnMoreText"); }
};

QStringList gLogged;

/// Keeps the log lines of the program, without those of the toolkit.
void keepLogged(QtMsgType /*type*/, const QMessageLogContext& context, const QString& message) {
    if (QByteArrayView(context.category).startsWith("corvella."))
        gLogged.append(message);
}

/// Collects the log lines while this object lives.
class LoggedLines final {
public:
    LoggedLines() : mPrevious(qInstallMessageHandler(keepLogged)) { gLogged.clear(); }
    ~LoggedLines() { qInstallMessageHandler(mPrevious); }
    LoggedLines(const LoggedLines&) = delete;
    LoggedLines& operator=(const LoggedLines&) = delete;

private:
    QtMessageHandler mPrevious;
};

TEST_F(SystemInfoSheet, ShowsExactlyWhatIsSent) {
    open();
    const LoggedLines logged;
    click("Learn More");
    ASSERT_NE(text(), nullptr);
    const QString shown = text()->toPlainText();
    const QUrlQuery sent(CVMakeUpdateAddress(CVUpdateService::ofBundle(), CVSystemInfo::Included));
    EXPECT_GT(sent.queryItems().size(), 3);
    for (const auto& [name, value] : sent.queryItems(QUrl::FullyDecoded))
        EXPECT_TRUE(shown.contains(value)) << name.toStdString() << ": " << value.toStdString();
    EXPECT_TRUE(shown.contains("Application: Corvella (com.quenbylabs.corvella)")) << shown.toStdString();
    EXPECT_FALSE(shown.contains('<')) << shown.toStdString();
    EXPECT_EQ(gLogged, QStringList());
}

TEST_F(SystemInfoSheet, IsAttachedToTheWindowAndEndsWithOK) {
    open();
    click("Learn More");
    ASSERT_NE(text(), nullptr);
    QWidget* const sheet = text()->window();
    EXPECT_EQ(sheet->parentWidget(), mWindow.get());
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    auto* const ok = sheet->findChild<QPushButton*>();
    ASSERT_NE(ok, nullptr);
    EXPECT_EQ(ok->text(), "OK");
    ok->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(text(), nullptr);
}

TEST_F(SystemInfoSheet, AMissingOrDamagedTextIsTold) {
    open();
    auto* const pane = mWindow->findChild<CVUpdatePane*>();
    pane->learnMore(":/missing.rtf");
    pane->learnMore(CORVELLA_SOURCE_DIR "/README.md");
    ASSERT_EQ(mAlerts.shown().size(), 2);
    for (const CVAlert& alert : mAlerts.shown()) {
        EXPECT_EQ(alert.title, "Could not load SystemInfo.rtf file");
        EXPECT_EQ(alert.message, "The SystemInfo.rtf file should be included in the application.  The application may "
                                 "have become corrupted.  You should download a fresh copy from " +
                                     CVSite::webSite());
        EXPECT_EQ(alert.defaultButton, "OK");
        EXPECT_TRUE(alert.alternateButton.isEmpty());
    }
    EXPECT_EQ(text(), nullptr);
}

TEST(SystemInfoText, TheFirstPlaceOfAKeyTakesItsValueAndAKeyWithoutAPlaceIsLogged) {
    QTextDocument text("one <cpu> two <cpu> <CPU> <ncpu>");
    const LoggedLines logged;
    CVFillSystemInfo(text, {{"cpu", "x86_64"}, {"ncpu", "2"}, {"serial", "12"}});
    EXPECT_EQ(text.toPlainText(), "one x86_64 two <cpu> <CPU> 2");
    EXPECT_EQ(gLogged, QStringList{"Information is being sent that is not reported to the user: serial = 12"});
}

} // namespace
