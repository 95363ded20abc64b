#include "base/CVSite.h"

namespace CVSite {

QString updateCheck() {
    return QStringLiteral(CORVELLA_UPDATE_URL);
}

QString webSite() {
    return QStringLiteral(CORVELLA_WEB_SITE);
}

QString supportForums() {
    return QStringLiteral(CORVELLA_FORUMS);
}

QString supportMail() {
    return QStringLiteral(CORVELLA_SUPPORT_MAIL);
}

} // namespace CVSite
