#pragma once

#include "shared/widgets/CVURLOpener.h"

/// The programs that the user's desktop has chosen for web pages and mail.
class CVDesktopPrograms final : public CVURLOpener {
public:
    [[nodiscard]] bool openURL(const QUrl& address) override;
};
