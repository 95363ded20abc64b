#pragma once

#include "workspace/printing/CVPrintPanels.h"

class CVPrintQueue;

/// Shows the toolkit's print dialogs. The program writes PDF files itself, as the command line does. Pages for a
/// printer are first painted into such a file, so that a cancelled report prints nothing.
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
