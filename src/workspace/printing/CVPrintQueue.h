#pragma once

#include <QString>

#include <optional>

class QPageSize;
class QPrinter;

/// The queue that takes pages to be printed on paper.
class CVPrintQueue {
public:
    /// Hands over all pages at once as a PDF file, with the paper, the printer's document name and the settings that
    /// the user chose for the printer. Other users may read the document name. Absent when the queue accepted the job,
    /// otherwise why it did not.
    [[nodiscard]] virtual std::optional<QString> print(const QString& path, const QPageSize& paper,
                                                       const QPrinter& printer) = 0;

protected:
    ~CVPrintQueue() = default;
};
