#include "shared/widgets/CVAlertPanel.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace {

/// Whether an alert can belong to that window: a popup may be gone before its answer.
bool lasts(const QWidget* window) {
    return window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
}

/// The window to block: the active one, or, while the application is in the background or just starting, any shown one.
QWidget* windowInUse() {
    QWidget* const active = QApplication::activeWindow();
    if (active && lasts(active))
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.cbegin(), windows.cend(), lasts);
    return shown == windows.cend() ? nullptr : *shown;
}

QPushButton* addButton(QMessageBox& panel, const QString& text, QMessageBox::ButtonRole role) {
    return text.isEmpty() ? nullptr : panel.addButton(text, role);
}

} // namespace

CVAlert::Answer CVAlertPanel::run(const CVAlert& alert) {
    QMessageBox panel(windowInUse());
    panel.setWindowModality(Qt::WindowModal);
    panel.setIcon(alert.style == CVAlert::Style::Warning ? QMessageBox::Warning : QMessageBox::Information);
    panel.setWindowTitle(alert.title);
    // Texts may quote what the user typed: they are shown as they are, not read as markup.
    panel.setTextFormat(Qt::PlainText);
    panel.setText(alert.title);
    panel.setInformativeText(alert.message);

    QPushButton* const defaultButton = addButton(panel, alert.defaultButton, QMessageBox::AcceptRole);
    QPushButton* const alternateButton = addButton(panel, alert.alternateButton, QMessageBox::RejectRole);
    const QPushButton* const otherButton = addButton(panel, alert.otherButton, QMessageBox::ActionRole);
    panel.setDefaultButton(defaultButton);
    panel.setEscapeButton(alternateButton ? alternateButton : defaultButton);
    panel.exec();

    const QAbstractButton* const clicked = panel.clickedButton();
    if (otherButton && clicked == otherButton)
        return CVAlert::kOther;
    // An alert that ends without an answer is not a yes.
    return alternateButton && clicked != defaultButton ? CVAlert::kAlternate : CVAlert::kDefault;
}
