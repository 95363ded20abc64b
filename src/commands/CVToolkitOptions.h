#pragma once

#include <QStringList>

/// The options that the toolkit takes for itself, told before it starts: it starts by looking for a display, and ends
/// the program where it finds none.
struct CVToolkitOptions {
    /// What is left of the arguments behind the program's name when the toolkit has taken its own.
    QStringList rest;
    /// The value of its option for the platform, or what the environment says; empty: the usual one.
    QString platform;
    /// Whether an option names a display.
    bool namesDisplay = false;

    [[nodiscard]] static CVToolkitOptions take(const QStringList& arguments);
    /// Whether there is a display, as far as that can be told without asking one.
    [[nodiscard]] bool hasDisplay() const;
};
