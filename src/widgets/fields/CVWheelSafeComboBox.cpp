#include "widgets/fields/CVWheelSafeComboBox.h"

#include <QHelpEvent>
#include <QStyleOptionComboBox>
#include <QToolTip>
#include <QWheelEvent>

namespace {

/// The margin that the styles keep on each side of the text. In pixels.
constexpr int kPopUpTextMargin = 1;

} // namespace

CVWheelSafeComboBox::CVWheelSafeComboBox(QWidget* parent) : QComboBox(parent) {
    // The wheel must not give the box the focus either.
    setFocusPolicy(Qt::StrongFocus);
}

void CVWheelSafeComboBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

bool CVWheelSafeComboBox::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return QComboBox::event(event);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       option.currentText == currentText() ? QString() : currentText(), this);
    return true;
}

void CVWheelSafeComboBox::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    const int room = style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this).width();
    option->currentText = fontMetrics().elidedText(option->currentText, Qt::ElideRight, room - 2 * kPopUpTextMargin);
}
