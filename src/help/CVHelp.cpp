#include "help/CVHelp.h"

#include "help/CVHelpBook.h"
#include "help/CVHelpWindow.h"
#include "widgets/CVAlerts.h"
#include "widgets/CVURLOpener.h"

#include <QCoreApplication>
#include <QDir>
#include <QUrl>

#include <utility>

namespace {

struct HelpText {
    Q_DECLARE_TR_FUNCTIONS(CVHelp)
};

} // namespace

CVHelp::CVHelp(QString programFolder, CVAlerts& alerts, QBUserDefaults& defaults, CVURLOpener& urls)
    : mProgramFolder(std::move(programFolder))
    , mAlerts(alerts)
    , mDefaults(defaults)
    , mURLs(urls) {}

CVHelp::~CVHelp() = default;

void CVHelp::showHelpPage(const QString& page, QWidget& asker) {
    if (mWindow || open(asker))
        mWindow->showPage(mBook->page(page));
}

void CVHelp::close() {
    if (mWindow)
        mWindow->close();
}

bool CVHelp::open(QWidget& asker) {
    const auto file = CVHelpBook::fileForProgramIn(mProgramFolder);
    if (!file) {
        tellOfProblem(HelpText::tr("its file “corvella.qch” is missing"), asker);
        return false;
    }
    auto book = std::make_unique<CVHelpBook>(*file);
    if (!book->problem().isEmpty()) {
        tellOfProblem(HelpText::tr("“%1” could not be read: %2").arg(QDir::toNativeSeparators(*file), book->problem()),
                      asker);
        return false;
    }
    mBook = std::move(book);
    mWindow = std::make_unique<CVHelpWindow>(*mBook, mDefaults);
    QObject::connect(mWindow.get(), &CVHelpWindow::webPageRequested, mWindow.get(),
                     [this](const QUrl& address) { mURLs.openURL(address, mWindow.get()); });
    return true;
}

void CVHelp::tellOfProblem(const QString& problem, QWidget& asker) {
    mAlerts.run(&asker,
                {HelpText::tr("The help book cannot be opened"),
                 HelpText::tr(
                     "Corvella's help cannot be shown, because %1. Your budget is not affected; install Corvella again "
                     "to have its help.")
                     .arg(problem),
                 HelpText::tr("OK")});
}
