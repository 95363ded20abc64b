#pragma once

class QUrl;
class QWidget;

/// Opens addresses in the user's own programs: web pages in the browser, mail addresses in the mail program.
class CVURLOpener {
public:
    /// Returns at once. Where no program opens the address, the user is told it: now or later, in the window from which
    /// the user asked, `asker`; null for none.
    virtual void openURL(const QUrl& address, QWidget* asker) = 0;

protected:
    ~CVURLOpener() = default;
};
