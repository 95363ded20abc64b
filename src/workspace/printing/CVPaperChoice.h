#pragma once

#include <QObject>
#include <QPageSize>

#include <optional>

class QComboBox;
class QDialog;
class QPrinter;

/// The paper on which a dialog of the toolkit prints: the given one, until the user chooses another in it. By itself
/// the dialog begins with the paper that is usual for the printer, and prints on that without having shown it. Watches
/// the dialog and those that open from it; ends with it.
class CVPaperChoice final : public QObject {
    Q_OBJECT

public:
    /// The dialog is the parent.
    CVPaperChoice(QDialog& dialog, const QPageSize& paper);

    [[nodiscard]] QPageSize paperOn(const QPrinter& printer) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch(QDialog& dialog);
    void offerPaper(QComboBox& papers);
    void choosePaper(const QDialog& dialog);
    void settle();

    /// An invalid one stands for the one that the printer has: of a size that the user typed.
    QPageSize mPaper;
    /// Chosen in the printer's properties, while the print dialog is still open.
    std::optional<QPageSize> mChosen;
};
