#include "widgets/tables/CVCommitOpenEditor.h"

#include <QAbstractItemView>

QAbstractItemView* CVTableOfOpenEditor(const QWidget* focused) {
    for (QWidget* above = focused ? focused->parentWidget() : nullptr; above; above = above->parentWidget()) {
        if (auto* const table = qobject_cast<QAbstractItemView*>(above))
            return table;
    }
    return nullptr;
}

void CVCommitOpenEditor(QWidget* focused) {
    // An editor commits when it loses the focus. The table gets the focus, so that the arrow keys move between its
    // cells.
    if (QAbstractItemView* const table = CVTableOfOpenEditor(focused))
        table->setFocus();
}
