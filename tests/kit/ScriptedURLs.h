#pragma once

#include "widgets/CVURLOpener.h"

#include <QList>
#include <QUrl>

/// Opens nothing, and remembers what it was asked to open.
class ScriptedURLs final : public CVURLOpener {
public:
    [[nodiscard]] bool openURL(const QUrl& address, QWidget* /*asker*/) override {
        mOpened.append(address);
        return mHasPrograms;
    }

    /// As on a machine where no program takes an address.
    void removePrograms() { mHasPrograms = false; }
    [[nodiscard]] const QList<QUrl>& opened() const { return mOpened; }

private:
    QList<QUrl> mOpened;
    bool mHasPrograms = true;
};
