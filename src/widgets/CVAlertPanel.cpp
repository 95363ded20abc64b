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

/// Whether an alert can belong to the window. A popup cannot: it may close before the alert is answered.
bool lasts(const QWidget* window) {
    return window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
}

/// Whether the modal window `modal` blocks `window`.
bool isBlockedBy(const QWidget& modal, const QWidget& window) {
    for (const QWidget* inside = &window; inside; inside = inside->parentWidget()) {
        if (inside == &modal)
            return false;
    }
    const QWidget* const owner = modal.parentWidget();
    return modal.windowModality() == Qt::ApplicationModal || (owner && owner->window() == &window);
}

/// The window that the alert belongs to and blocks. QApplication::activeWindow() is no help: it is null just after
/// another dialog has closed.
QWidget* windowFor(QWidget* asker) {
    QWidget* const asking = asker && lasts(asker->window()) ? asker->window() : nullptr;
    QWidget* const modal = QApplication::activeModalWidget();
    if (modal && lasts(modal) && !(asking && !isBlockedBy(*modal, *asking)))
        return modal;
    if (asking)
        return asking;
    // The asker's window has been closed meanwhile.
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

/// Makes the headline bold and the panel wide: a panel as narrow as a short headline would break the message into many
/// short lines.
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
    // During start-up the alert may be the only window; closing it must not quit the program.
    panel.setAttribute(Qt::WA_QuitOnClose, false);
    panel.setIcon(iconOf(alert.style));
    // The alert's title is shown in the headline, because the window manager would cut a long caption.
    panel.setWindowTitle(QString::fromLatin1(CVBundle::kName));
    // Texts may quote what the user typed, which must not be read as markup.
    panel.setTextFormat(Qt::PlainText);
    panel.setText(alert.title);
    panel.setInformativeText(alert.message);
    makeReadable(panel);

    QPushButton* const defaultButton = addButton(panel, alert.defaultButton, QMessageBox::AcceptRole);
    QPushButton* const alternateButton = addButton(panel, alert.alternateButton, QMessageBox::RejectRole);
    QPushButton* const otherButton = addButton(panel, alert.otherButton, QMessageBox::ActionRole);
    QPushButton* const furtherButton = addButton(panel, alert.furtherButton, QMessageBox::ActionRole);
    panel.setDefaultButton(defaultButton);
    const bool isDefaultSafe = !alternateButton || alert.escapeAnswer == CVAlert::kDefault;
    panel.setEscapeButton(isDefaultSafe                                          ? defaultButton
                          : otherButton && alert.escapeAnswer == CVAlert::kOther ? otherButton
                                                                                 : alternateButton);
    panel.exec();

    // An alert that ends without a click counts as the safe answer.
    const QAbstractButton* const clicked = panel.clickedButton() ? panel.clickedButton() : panel.escapeButton();
    if (otherButton && clicked == otherButton)
        return CVAlert::kOther;
    if (furtherButton && clicked == furtherButton)
        return CVAlert::kFurther;
    return clicked == defaultButton ? CVAlert::kDefault : CVAlert::kAlternate;
}
