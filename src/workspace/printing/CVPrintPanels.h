#pragma once

#include <QStringList>

#include <functional>
#include <optional>

class CVReportView;
class QWidget;
struct CVPrintInfo;

/// The panels of printing, shown as sheets of a window. While one is shown other events run, and what is printed stays
/// as it is.
class CVPrintPanels {
public:
    /// No file of pages may take the place of these files, which are asked for whenever one is written.
    virtual void spare(std::function<QStringList()> dataFiles) = 0;
    /// Lets the user choose a printer, or a file, and prints on it, with a way to cancel. What the user chose holds for
    /// this printing. Absent when all is well, which a cancelled printing is too; else what went wrong.
    [[nodiscard]] virtual std::optional<QString> print(QWidget& window, CVReportView& view) = 0;
    /// Shows the pages, and prints them from there; as above.
    [[nodiscard]] virtual std::optional<QString> preview(QWidget& window, CVReportView& view) = 0;
    /// Lets the user change paper, orientation and margins.
    virtual void setUpPage(QWidget& window, CVPrintInfo& printInfo) = 0;

protected:
    ~CVPrintPanels() = default;
};
