#pragma once

#include <QStringList>

#include <functional>
#include <optional>

class CVReportView;
class QWidget;
struct CVPrintInfo;

/// The panels of printing, which block their window. Other events run while a panel is shown, and the report that is
/// printed stays unchanged.
class CVPrintPanels {
public:
    /// Protects these files from being overwritten by a PDF file. `dataFiles` is asked before each PDF file is written.
    virtual void spare(std::function<QStringList()> dataFiles) = 0;
    /// Lets the user choose a printer or a file and prints on it, with a way to cancel. The choices hold for this
    /// printing only. Absent on success and after a cancel; otherwise what went wrong.
    [[nodiscard]] virtual std::optional<QString> print(QWidget& window, CVReportView& view) = 0;
    /// Shows a preview, from which the user can print. Returns the same as print().
    [[nodiscard]] virtual std::optional<QString> preview(QWidget& window, CVReportView& view) = 0;
    /// Lets the user change paper, orientation and margins.
    virtual void setUpPage(QWidget& window, CVPrintInfo& printInfo) = 0;

protected:
    ~CVPrintPanels() = default;
};
