#include "help/CVHelpBook.h"

#include <QDir>
#include <QFileInfo>
#include <QHelpEngine>

#include <array>

namespace {

constexpr QLatin1StringView kScheme("qthelp");
/// The namespace and the folder of the book, as corvella.qhp has them.
constexpr QLatin1StringView kFolder("qthelp://com.quenbylabs.corvella/book/");
/// The book's places relative to the program's folder: in a build, and in an installation.
constexpr std::array<QLatin1StringView, 2> kPlaces{QLatin1StringView("help/corvella.qch"),
                                                   QLatin1StringView("../share/corvella/help/corvella.qch")};

} // namespace

std::optional<QString> CVHelpBook::fileForProgramIn(const QString& folder) {
    for (const QLatin1StringView place : kPlaces) {
        const QString file = QDir::cleanPath(QDir(folder).filePath(place));
        if (QFileInfo(file).isFile())
            return file;
    }
    return std::nullopt;
}

CVHelpBook::CVHelpBook(const QString& file)
    : mEngine(std::make_unique<QHelpEngine>(mScratch.filePath(QStringLiteral("corvella.qhc"))))
    , mProblem(open(file)) {}

CVHelpBook::~CVHelpBook() = default;

QUrl CVHelpBook::page(const QString& name) const {
    const QUrl address(kFolder + name);
    return bytesAt(address).isEmpty() ? QUrl(kFolder + QLatin1StringView(kStartPage)) : address;
}

QByteArray CVHelpBook::bytesAt(const QUrl& address) const {
    return mEngine->fileData(address.adjusted(QUrl::RemoveFragment));
}

bool CVHelpBook::isInside(const QUrl& address) {
    return address.scheme() == kScheme;
}

QString CVHelpBook::open(const QString& file) {
    if (!mScratch.isValid())
        return mScratch.errorString();
    mEngine->setReadOnly(false);
    if (!mEngine->setupData() || !mEngine->registerDocumentation(file))
        return mEngine->error();
    return {};
}
