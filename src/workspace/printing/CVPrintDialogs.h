#pragma once

#include "workspace/printing/CVPrintPanels.h"

class CVPrintQueue;

/// The toolkit's own dialogs. A file is written by the program itself, as the command line writes it; what goes to a
/// printer is held in such a file until all of it is painted, so that a cancelled report prints nothing.
class CVPrintDialogs final : public CVPrintPanels {
public:
    /// The queue outlives the dialogs.
    explicit CVPrintDialogs(CVPrintQueue& queue) : mQueue(queue) {}

    void spare(std::function<QStringList()> dataFiles) override { mDataFiles = std::move(dataFiles); }
    [[nodiscard]] std::optional<QString> print(QWidget& window, CVReportView& view) override;
    [[nodiscard]] std::optional<QString> preview(QWidget& window, CVReportView& view) override;
    void setUpPage(QWidget& window, CVPrintInfo& printInfo) override;

private:
    [[nodiscard]] QStringList spared() const { return mDataFiles ? mDataFiles() : QStringList(); }

    CVPrintQueue& mQueue;
    std::function<QStringList()> mDataFiles;
};
