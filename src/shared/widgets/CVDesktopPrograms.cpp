#include "shared/widgets/CVDesktopPrograms.h"

#include <QDesktopServices>
#include <QUrl>

bool CVDesktopPrograms::openURL(const QUrl& address) {
    return QDesktopServices::openUrl(address);
}
