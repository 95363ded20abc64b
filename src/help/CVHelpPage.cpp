#include "help/CVHelpPage.h"

#include "help/CVHelpBook.h"

namespace {

bool isOfWeb(const QUrl& address) {
    return address.scheme() == QLatin1String("https") || address.scheme() == QLatin1String("http");
}

} // namespace

CVHelpPage::CVHelpPage(const CVHelpBook& book, QWidget* parent) : QTextBrowser(parent), mBook(book) {
    setOpenLinks(false);
    document()->setDocumentMargin(fontMetrics().height());
    // The keyboard can reach and follow links.
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    connect(this, &QTextBrowser::anchorClicked, this, &CVHelpPage::go);
}

void CVHelpPage::go(const QUrl& address) {
    if (CVHelpBook::isInside(address))
        setSource(address);
    else if (isOfWeb(address))
        emit webPageRequested(address);
}

/// Loads everything that a page shows from the book.
QVariant CVHelpPage::loadResource(int /*type*/, const QUrl& name) {
    return CVHelpBook::isInside(name) ? QVariant(mBook.bytesAt(name)) : QVariant();
}
