#pragma once

#include <QDialog>

class QTextBrowser;
class QUrl;

/// Says what the program is: its version, its maker's web page, its licence, and the libraries that it uses with
/// theirs. The text can be selected and copied.
class CVAboutWindow final : public QDialog {
    Q_OBJECT

public:
    explicit CVAboutWindow(QWidget* parent);

    /// All of it, as it is copied.
    [[nodiscard]] QString text() const;

signals:
    /// A link was followed.
    void webPageRequested(const QUrl& address);

private:
    void addButtons();

    QTextBrowser* mText;
};
