#include "workspace/budgettabs/CVFrequencyBox.h"

#include "budget/CVLabelOfFrequency.h"

#include <QAbstractItemView>
#include <QMetaObject>

CVFrequencyBox::CVFrequencyBox(QWidget* parent) : QComboBox(parent) {
    setAccessibleName(tr("Frequency"));
    setAutoFillBackground(true);
    for (int code = 0; code < kFrequencyLabels; ++code)
        addItem(CVLabelOfFrequency(code));
    // The list opens after the table has placed the box. A letter that opened the editor has by then selected an item,
    // which does not count as a choice.
    QMetaObject::invokeMethod(this, &CVFrequencyBox::open, Qt::QueuedConnection);
}

void CVFrequencyBox::hidePopup() {
    const bool wasOpen = view()->isVisible();
    QComboBox::hidePopup();
    if (!wasOpen)
        return;
    // `closed` is emitted later, because the toolkit announces a choice only after the list is hidden and the receiver
    // of `closed` may delete this box.
    const auto close = [this] {
        if (isVisible())
            emit closed(this, QAbstractItemDelegate::NoHint);
    };
    QMetaObject::invokeMethod(this, close, Qt::QueuedConnection);
}

void CVFrequencyBox::open() {
    connect(this, &QComboBox::activated, this, [this] { emit chosen(this); });
    showPopup();
}
