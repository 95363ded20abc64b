#pragma once

#include <QDialog>

class QTextBrowser;
class QUrl;

/// Shows the program's version, its maker's web page and its licence, and the libraries that it uses with their
/// licences. The text can be selected and copied.
class CVAboutWindow final : public QDialog {
    Q_OBJECT

public:
    explicit CVAboutWindow(QWidget* parent);

    /// The text that the Copy All button copies.
    [[nodiscard]] QString text() const;

signals:
    /// The user followed a link.
    void webPageRequested(const QUrl& address);

private:
    void addButtons();

    QTextBrowser* mText;
};
