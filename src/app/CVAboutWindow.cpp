#include "app/CVAboutWindow.h"

#include "base/CVBundle.h"
#include "base/CVSite.h"
#include "widgets/CVWindowFrame.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>

#include <array>

namespace {

constexpr int kIconSide = 64;
constexpr int kWidthInDigits = 70;
constexpr int kListIndent = 16;
constexpr int kHeightInLines = 27;

struct Library {
    const char* name;
    /// The library's use in this program.
    const char* use;
    const char* licence;
    const char* page;
};

/// Every library is linked as a shared library of the system.
constexpr std::array<Library, 5> kLibraries{
    {{"Qt", QT_TRANSLATE_NOOP("CVAboutWindow", "windows, printing, help"),
      QT_TRANSLATE_NOOP("CVAboutWindow", "GNU Lesser General Public License, version 3"), "https://www.qt.io/"},
     {"libxml2", QT_TRANSLATE_NOOP("CVAboutWindow", "reads data files and statements"),
      QT_TRANSLATE_NOOP("CVAboutWindow", "MIT licence"), "https://gitlab.gnome.org/GNOME/libxml2"},
     {"libplist", QT_TRANSLATE_NOOP("CVAboutWindow", "reads property lists"),
      QT_TRANSLATE_NOOP("CVAboutWindow", "GNU Lesser General Public License, version 2.1 or later"),
      "https://libimobiledevice.org/"},
     {"muParser", QT_TRANSLATE_NOOP("CVAboutWindow", "computes what is typed into amounts"),
      QT_TRANSLATE_NOOP("CVAboutWindow", "MIT licence"), "https://beltoforion.de/en/muparser/"},
     {"CUPS", QT_TRANSLATE_NOOP("CVAboutWindow", "hands pages to printers"),
      QT_TRANSLATE_NOOP("CVAboutWindow", "Apache License, version 2.0"), "https://openprinting.github.io/cups/"}}};

QString link(const QString& address) {
    return QStringLiteral("<a href=\"%1\">%1</a>").arg(address.toHtmlEscaped());
}

QString paragraph(const QString& html) {
    return QStringLiteral("<p>%1</p>").arg(html);
}

} // namespace

CVAboutWindow::CVAboutWindow(QWidget* parent) : QDialog(parent), mText(new QTextBrowser(this)) {
    setWindowTitle(tr("About Corvella"));
    mText->setObjectName(QStringLiteral("mAboutText"));
    mText->setAccessibleName(tr("About Corvella"));
    mText->setTabChangesFocus(true);
    mText->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    mText->setOpenLinks(false);
    QString libraries;
    for (const Library& library : kLibraries) {
        const bool isToolkit = &library == kLibraries.data();
        const QString name = QLatin1String(library.name) + (isToolkit ? u' ' + QLatin1String(qVersion()) : QString());
        libraries += QStringLiteral("<li>%1</li>")
                         .arg(tr("%1 (%2): %3. %4")
                                  .arg(name, tr(library.use), tr(library.licence), link(QLatin1String(library.page))));
    }
    mText->document()->setIndentWidth(kListIndent);
    mText->setHtml(
        QStringLiteral("<h2>%1</h2>").arg(tr("Corvella %1").arg(CVBundle::versionText())) +
        paragraph(tr("Your own budget on your own computer.")) + paragraph(link(CVSite::webSite())) +
        paragraph(
            tr("Copyright © 2026 Quenby Labs. Corvella is free software under the MIT licence: you may use, copy, "
               "change and pass it on; it comes without any warranty. The file LICENSE has the whole text.")) +
        paragraph(tr("Corvella uses these libraries, each under its own licence:")) +
        QStringLiteral("<ul>%1</ul>").arg(libraries));
    mText->moveCursor(QTextCursor::Start);
    connect(mText, &QTextBrowser::anchorClicked, this, &CVAboutWindow::webPageRequested);

    auto* const icon = new QLabel(this);
    icon->setPixmap(QApplication::windowIcon().pixmap(QSize(kIconSide, kIconSide), devicePixelRatio()));
    auto* const contents = new QHBoxLayout;
    contents->addWidget(icon, 0, Qt::AlignTop);
    contents->addWidget(mText, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(contents, 1);
    addButtons();
    CVWindowFrame::restore(
        *this, {},
        {kWidthInDigits * fontMetrics().horizontalAdvance('0'), kHeightInLines * fontMetrics().lineSpacing()});
}

QString CVAboutWindow::text() const {
    return mText->toPlainText();
}

void CVAboutWindow::addButtons() {
    auto* const buttons = new QDialogButtonBox(this);
    QPushButton* const copy = buttons->addButton(tr("Copy &All"), QDialogButtonBox::ActionRole);
    copy->setAccessibleName(tr("Copy All"));
    connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(text()); });
    QPushButton* const close = buttons->addButton(tr("&Close"), QDialogButtonBox::RejectRole);
    close->setAccessibleName(tr("Close"));
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QDialog::reject);
    layout()->addWidget(buttons);
}
