#pragma once

#include "widgets/CVHelpOpener.h"

#include <memory>

class CVAlerts;
class CVHelpBook;
class CVHelpWindow;
class CVURLOpener;
class QBUserDefaults;

/// The help of the whole program. Opens the help book and its one window at the first request. References its
/// arguments, which outlive it.
class CVHelp final : public CVHelpOpener {
public:
    /// The book is searched relative to `programFolder`; `urls` opens the web pages that the book links to.
    CVHelp(QString programFolder, CVAlerts& alerts, QBUserDefaults& defaults, CVURLOpener& urls);
    ~CVHelp();
    CVHelp(const CVHelp&) = delete;
    CVHelp& operator=(const CVHelp&) = delete;

    /// Shows a page, or the start page when the book has no page of that name. An alert says why when the book is
    /// missing or unreadable.
    void showHelpPage(const QString& page, QWidget& asker) override;
    /// Closes the window if it exists.
    void close();

private:
    [[nodiscard]] bool open(QWidget& asker);
    void tellOfProblem(const QString& problem, QWidget& asker);

    QString mProgramFolder;
    CVAlerts& mAlerts;
    QBUserDefaults& mDefaults;
    CVURLOpener& mURLs;
    std::unique_ptr<CVHelpBook> mBook;
    std::unique_ptr<CVHelpWindow> mWindow;
};
