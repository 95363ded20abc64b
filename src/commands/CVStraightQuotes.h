#pragma once

#include <QString>

/// A text of a window in the form of the command line.
[[nodiscard]] inline QString CVStraightQuotes(QString text) {
    return text.replace(u'“', u'"').replace(u'”', u'"');
}
