#pragma once

class QUrl;
class QWidget;

/// Opens addresses in the user's own programs: web pages in the browser, mail addresses in the mail program.
class CVURLOpener {
public:
    /// False when no program takes the address. `asker` is the window in which the user asked for it; null for none.
    [[nodiscard]] virtual bool openURL(const QUrl& address, QWidget* asker) = 0;

protected:
    ~CVURLOpener() = default;
};
