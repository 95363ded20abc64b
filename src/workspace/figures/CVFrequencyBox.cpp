#include "workspace/figures/CVFrequencyBox.h"

#include "budget/CVFrequencyLabel.h"

#include <QAbstractItemView>
#include <QMetaObject>

CVFrequencyBox::CVFrequencyBox(QWidget* parent) : QComboBox(parent) {
    setAccessibleName(tr("Frequency"));
    setAutoFillBackground(true);
    for (int code = 0; code < kFrequencyLabels; ++code)
        addItem(CVFrequencyLabel(code));
    // Once the table has put the box in its place. A letter that opened the editor has then selected an item, which is
    // no choice yet.
    QMetaObject::invokeMethod(this, &CVFrequencyBox::open, Qt::QueuedConnection);
}

void CVFrequencyBox::hidePopup() {
    const bool wasOpen = view()->isVisible();
    QComboBox::hidePopup();
    if (!wasOpen)
        return;
    // The choice, if there was one, is announced after the list is hidden, and may have done away with this box.
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
