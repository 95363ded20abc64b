#pragma once

#include "workspace/printing/CVPrintQueue.h"

/// Prints through CUPS. The toolkit also prints through CUPS, but reports no refusal and cannot drop pages that it has
/// painted.
class CVCupsQueue final : public CVPrintQueue {
public:
    [[nodiscard]] std::optional<QString> print(const QString& path, const QPageSize& paper,
                                               const QPrinter& printer) override;
};
