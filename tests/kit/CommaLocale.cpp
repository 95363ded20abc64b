#include "kit/CommaLocale.h"

#include <QProcess>
#include <QStringList>

#include <clocale>

namespace {

bool setCommaLocale() {
    for (const char* const name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE"}) {
        if (std::setlocale(LC_NUMERIC, name) && *std::localeconv()->decimal_point == ',')
            return true;
    }
    return false;
}

} // namespace

CommaLocale::CommaLocale() : mPrevious(std::setlocale(LC_NUMERIC, nullptr)), mInForce(setCommaLocale()) {
    if (mInForce)
        return;
    // localedef warns about its own definitions, so its exit status is useless; setlocale() shows whether the locale
    // works.
    QProcess process;
    // With a modifier the toolkit forks. A vfork shares the memory, and the checker of threads takes the parent for the
    // child from then on.
    process.setChildProcessModifier([] {});
    process.start(QStringLiteral("localedef"),
                  {QStringLiteral("--quiet"), QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                   QStringLiteral("UTF-8"), mFolder.filePath(QStringLiteral("de_DE.UTF-8"))});
    process.waitForFinished();
    qputenv("LOCPATH", mFolder.path().toLocal8Bit());
    mInForce = setCommaLocale();
    qunsetenv("LOCPATH");
}

CommaLocale::~CommaLocale() {
    std::setlocale(LC_NUMERIC, mPrevious.constData());
}
