#pragma once

#include <QObject>
#include <QPageSize>

#include <optional>

class QComboBox;
class QDialog;
class QPrinter;

/// Makes a print dialog of the toolkit print on the given paper until the user chooses another in the dialog. Without
/// this, the dialog prints on the printer's default paper without having shown it. The object watches the dialog and
/// the dialogs opened from it, and ends with it.
class CVPaperChoice final : public QObject {
    Q_OBJECT

public:
    /// `dialog` becomes the parent.
    CVPaperChoice(QDialog& dialog, const QPageSize& paper);

    [[nodiscard]] QPageSize paperOn(const QPrinter& printer) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watch(QDialog& dialog);
    void offerPaper(QComboBox& papers);
    void choosePaper(const QDialog& dialog);
    void settle();

    /// The paper to print on. An invalid size stands for the printer's own: the user typed a custom size.
    QPageSize mPaper;
    /// The paper that was chosen in the printer's properties while the print dialog is still open.
    std::optional<QPageSize> mChosen;
};
