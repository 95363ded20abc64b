#include "kit/CommaLocale.h"

#include "kit/StartedProgram.h"

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
    StartedProgram(QStringLiteral("localedef"),
                   {QStringLiteral("--quiet"), QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                    QStringLiteral("UTF-8"), mFolder.filePath(QStringLiteral("de_DE.UTF-8"))})
        .wait();
    qputenv("LOCPATH", mFolder.path().toLocal8Bit());
    mInForce = setCommaLocale();
    qunsetenv("LOCPATH");
}

CommaLocale::~CommaLocale() {
    std::setlocale(LC_NUMERIC, mPrevious.constData());
}
