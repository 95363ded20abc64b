#pragma once

#include "widgets/CVHelpOpener.h"

#include <memory>

class CVAlerts;
class CVHelpBook;
class CVHelpWindow;
class CVURLOpener;
class QBUserDefaults;

/// Help for the whole program: opens the book and its one window when they are first asked for. References what it
/// is given, all of which outlives it.
class CVHelp final : public CVHelpOpener {
public:
    /// The book is looked for from the program's folder; `urls` opens the web pages that it refers to.
    CVHelp(QString programFolder, CVAlerts& alerts, QBUserDefaults& defaults, CVURLOpener& urls);
    ~CVHelp();
    CVHelp(const CVHelp&) = delete;
    CVHelp& operator=(const CVHelp&) = delete;

    /// Shows that page, or the start page when the book has none of that name. A book that is missing or unreadable is
    /// told of instead.
    void showHelpPage(const QString& page, QWidget& asker) override;
    /// Closes the window, if there is one.
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
