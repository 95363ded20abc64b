#pragma once

#include <QStringList>

/// The toolkit's own options, recognised before the toolkit starts, because the toolkit ends the program when it finds
/// no display.
struct CVToolkitOptions {
    /// The arguments after the program's name without those of the toolkit.
    QStringList rest;
    /// The platform that the option or the environment names; empty: the usual one.
    QString platform;
    /// Whether an option names a display.
    bool namesDisplay = false;

    [[nodiscard]] static CVToolkitOptions take(const QStringList& arguments);
    /// Whether there is a display, as far as that can be told without connecting to one.
    [[nodiscard]] bool hasDisplay() const;
};
