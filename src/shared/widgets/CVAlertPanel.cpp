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

/// The window to block: the active one, or, while the application is in the background or just starting, the modal one
/// or any shown one.
QWidget* windowInUse() {
    for (QWidget* const window : {QApplication::activeWindow(), QApplication::activeModalWidget()}) {
        if (window && lasts(window))
            return window;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.cbegin(), windows.cend(), lasts);
    return shown == windows.cend() ? nullptr : *shown;
}

QMessageBox::Icon iconOf(CVAlert::Style style) {
    switch (style) {
    case CVAlert::Style::Information:
        return QMessageBox::Information;
    case CVAlert::Style::Critical:
        return QMessageBox::Critical;
    case CVAlert::Style::Warning:
        break;
    }
    return QMessageBox::Warning;
}

QPushButton* addButton(QMessageBox& panel, const QString& text, QMessageBox::ButtonRole role) {
    return text.isEmpty() ? nullptr : panel.addButton(text, role);
}

} // namespace

CVAlert::Answer CVAlertPanel::run(const CVAlert& alert) {
    QMessageBox panel(windowInUse());
    panel.setWindowModality(Qt::WindowModal);
    // At the start it may be the only window.
    panel.setAttribute(Qt::WA_QuitOnClose, false);
    panel.setIcon(iconOf(alert.style));
    panel.setWindowTitle(alert.title);
    // Texts may quote what the user typed: they are shown as they are, not read as markup.
    panel.setTextFormat(Qt::PlainText);
    panel.setText(alert.title);
    panel.setInformativeText(alert.message);

    QPushButton* const defaultButton = addButton(panel, alert.defaultButton, QMessageBox::AcceptRole);
    QPushButton* const alternateButton = addButton(panel, alert.alternateButton, QMessageBox::RejectRole);
    QPushButton* const otherButton = addButton(panel, alert.otherButton, QMessageBox::ActionRole);
    panel.setDefaultButton(defaultButton);
    const bool isDefaultSafe = !alternateButton || alert.escapeAnswer == CVAlert::kDefault;
    panel.setEscapeButton(isDefaultSafe                                          ? defaultButton
                          : otherButton && alert.escapeAnswer == CVAlert::kOther ? otherButton
                                                                                 : alternateButton);
    panel.exec();

    // An alert that ends without an answer is no consent.
    const QAbstractButton* const clicked = panel.clickedButton() ? panel.clickedButton() : panel.escapeButton();
    if (otherButton && clicked == otherButton)
        return CVAlert::kOther;
    return clicked == defaultButton ? CVAlert::kDefault : CVAlert::kAlternate;
}
