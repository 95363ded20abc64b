#pragma once

class QUrl;
class QWidget;

/// Opens addresses in the user's own programs: web pages in the browser, mail addresses in the mail program.
class CVURLOpener {
public:
    /// Returns at once. When no program opens the address, an alert tells the user, now or later, in `asker`, the
    /// window in which the user asked; null for none.
    virtual void openURL(const QUrl& address, QWidget* asker) = 0;

protected:
    ~CVURLOpener() = default;
};
