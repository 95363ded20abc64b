#pragma once

#include "workspace/CVPrintPanels.h"

/// The toolkit's own dialogs. A file is written by the program itself, as the command line writes it.
class CVPrintDialogs final : public CVPrintPanels {
public:
    [[nodiscard]] std::optional<QString> print(QWidget& window, CVReportView& view) override;
    [[nodiscard]] std::optional<QString> preview(QWidget& window, CVReportView& view) override;
    void setUpPage(QWidget& window, CVPrintInfo& printInfo) override;
};
