#include "base/CVBundle.h"

namespace CVBundle {

std::string_view version() {
    return CORVELLA_VERSION;
}

QString versionText() {
    return QString::fromUtf8(version().data(), static_cast<qsizetype>(version().size()));
}

} // namespace CVBundle
