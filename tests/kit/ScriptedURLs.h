#pragma once

#include "widgets/CVURLOpener.h"

#include <QList>
#include <QStringList>
#include <QUrl>
#include <QWidget>

/// Opens nothing and records the addresses.
class ScriptedURLs final : public CVURLOpener {
public:
    void openURL(const QUrl& address, QWidget* asker) override {
        mOpened.append(address);
        mAskers.append(asker ? asker->window()->windowTitle() : QString());
    }

    [[nodiscard]] const QList<QUrl>& opened() const { return mOpened; }
    /// The title of the window in which each address was asked for; null for none.
    [[nodiscard]] const QStringList& askers() const { return mAskers; }

private:
    QList<QUrl> mOpened;
    QStringList mAskers;
};
