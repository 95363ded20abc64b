#pragma once

class QUrl;

/// Opens addresses in the user's own programs: web pages in the browser, mail addresses in the mail program.
class CVURLOpener {
public:
    /// False when no program takes the address.
    [[nodiscard]] virtual bool openURL(const QUrl& address) = 0;

protected:
    ~CVURLOpener() = default;
};
