#pragma once

#include <QTextBrowser>

class CVHelpBook;

/// Shows pages of the help book and follows the links between them. References the book, which outlives it.
class CVHelpPage final : public QTextBrowser {
    Q_OBJECT

public:
    explicit CVHelpPage(const CVHelpBook& book, QWidget* parent = nullptr);

    /// Shows the page at an address of the book. A web address is announced instead; any other address does nothing.
    void go(const QUrl& address);

signals:
    void webPageRequested(const QUrl& address);

protected:
    [[nodiscard]] QVariant loadResource(int type, const QUrl& name) override;

private:
    const CVHelpBook& mBook;
};
