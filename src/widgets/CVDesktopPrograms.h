#pragma once

#include "widgets/CVURLOpener.h"

#include <QObject>
#include <QUrl>
#include <QWidget>

class CVAlerts;

/// Opens addresses in the programs that the user's desktop has chosen for web pages and mail. These programs go on
/// running when Corvella ends.
class CVDesktopPrograms final : public QObject, public CVURLOpener {
    Q_OBJECT

public:
    /// `alerts` outlives this object.
    explicit CVDesktopPrograms(CVAlerts& alerts) : mAlerts(alerts) {}

    /// The desktop may accept an address and find only later that it has no program for it or cannot start the program.
    void openURL(const QUrl& address, QWidget* asker) override;

private:
    /// Shows an alert that no program opened the address. `asker` is null where its window has closed meanwhile.
    void tellNotOpened(const QUrl& address, QWidget* asker);

    CVAlerts& mAlerts;
};
