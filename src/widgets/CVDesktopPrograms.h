#pragma once

#include "widgets/CVURLOpener.h"

#include <QObject>
#include <QUrl>
#include <QWidget>

/// The programs that the user's desktop has chosen for web pages and mail. What is opened goes on when Corvella ends.
class CVDesktopPrograms final : public QObject, public CVURLOpener {
    Q_OBJECT

public:
    [[nodiscard]] bool openURL(const QUrl& address, QWidget* asker) override;

signals:
    /// The desktop, which had taken the address, found no program for it, or none that would start.
    /// `asker` is null where its window has closed meanwhile.
    void failed(const QUrl& address, QWidget* asker);
};
