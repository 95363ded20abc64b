#pragma once

#include "workspace/printing/CVPrintQueue.h"

/// The queues of CUPS. The toolkit prints there too, but tells neither a refusal nor can it take back what was painted.
class CVCupsQueue final : public CVPrintQueue {
public:
    [[nodiscard]] std::optional<QString> print(const QString& path, const QPageSize& paper,
                                               const QPrinter& printer) override;
};
