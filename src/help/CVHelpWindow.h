#pragma once

#include <QMainWindow>

class CVHelpBook;
class CVHelpPage;
class CVHelpSearch;
class QBUserDefaults;
class QBoxLayout;
class QHelpContentWidget;
class QSplitter;
class QTabWidget;

/// The window of the help book: contents, index and search at the left, the page at the right. Escape and Ctrl+W close
/// the window; its frame is remembered. References the book and the user defaults, which outlive it.
class CVHelpWindow final : public QMainWindow {
    Q_OBJECT

public:
    CVHelpWindow(const CVHelpBook& book, QBUserDefaults& defaults);

    /// Brings the window to the front and shows the page at that address of the book.
    void showPage(const QUrl& address);

signals:
    /// The user followed a link to a web page.
    void webPageRequested(const QUrl& address);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QBoxLayout* makeCommands();
    void addShortcuts();
    void addContents();
    void addIndex();
    void addSearch();
    void selectInContents(const QUrl& address);
    void goToFound(const QUrl& address, const QString& word);
    void restoreFrame();

    const CVHelpBook& mBook;
    QBUserDefaults& mDefaults;
    QSplitter* mSplitter;
    QTabWidget* mFinders;
    CVHelpPage* mPage;
    QHelpContentWidget* mContents = nullptr;
    CVHelpSearch* mSearch = nullptr;
};
