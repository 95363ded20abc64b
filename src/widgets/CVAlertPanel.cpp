#include "widgets/CVAlertPanel.h"

#include "base/CVBundle.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int kLeastLetters = 45;

/// Whether an alert can belong to that window: a popup may be gone before its answer.
bool lasts(const QWidget* window) {
    return window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
}

/// Whether `window` waits for the end of `modal`.
bool isBlockedBy(const QWidget& modal, const QWidget& window) {
    for (const QWidget* inside = &window; inside; inside = inside->parentWidget()) {
        if (inside == &modal)
            return false;
    }
    const QWidget* const owner = modal.parentWidget();
    return modal.windowModality() == Qt::ApplicationModal || (owner && owner->window() == &window);
}

/// The window to block. The active one would not do: there is none just after another dialog has closed.
QWidget* windowFor(QWidget* asker) {
    QWidget* const asking = asker && lasts(asker->window()) ? asker->window() : nullptr;
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal && lasts(modal) && !(asking && !isBlockedBy(*modal, *asking)))
        return modal;
    if (asking)
        return asking;
    // Whoever asked has closed its window meanwhile.
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

/// Makes the headline stand out, and the panel wide enough to read in: a short headline would break the message below
/// it into many short lines.
void makeReadable(QMessageBox& panel) {
    for (auto* const label : panel.findChildren<QLabel*>()) {
        if (label->text() != panel.text())
            continue;
        QFont font = label->font();
        font.setBold(true);
        label->setFont(font);
    }
    auto* const rows = qobject_cast<QGridLayout*>(panel.layout());
    Q_ASSERT(rows);
    const int width = kLeastLetters * panel.fontMetrics().averageCharWidth();
    rows->addItem(new QSpacerItem(width, 0), rows->rowCount(), rows->columnCount() - 1);
}

QPushButton* addButton(QMessageBox& panel, const QString& text, QMessageBox::ButtonRole role) {
    return text.isEmpty() ? nullptr : panel.addButton(text, role);
}

} // namespace

CVAlert::Answer CVAlertPanel::run(QWidget* window, const CVAlert& alert) {
    QMessageBox panel(windowFor(window));
    panel.setWindowModality(Qt::WindowModal);
    // At the start it may be the only window.
    panel.setAttribute(Qt::WA_QuitOnClose, false);
    panel.setIcon(iconOf(alert.style));
    // The headline says it whole; a caption would be cut.
    panel.setWindowTitle(QString::fromLatin1(CVBundle::kName));
    // Texts may quote what the user typed: they are shown as they are, not read as markup.
    panel.setTextFormat(Qt::PlainText);
    panel.setText(alert.title);
    panel.setInformativeText(alert.message);
    makeReadable(panel);

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
