#pragma once

#include <QString>

#include <optional>

class QPageSize;
class QPrinter;

/// Where pages go that are printed on paper.
class CVPrintQueue {
public:
    /// Hands over all pages at once: a PDF document on that paper, under the printer's document name, which others may
    /// read, with what the user chose for the printer. Absent when the queue took it, else why it did not.
    [[nodiscard]] virtual std::optional<QString> print(const QString& path, const QPageSize& paper,
                                                       const QPrinter& printer) = 0;

protected:
    ~CVPrintQueue() = default;
};
