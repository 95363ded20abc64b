#include "widgets/tables/CVCommitOpenEditor.h"

#include <QAbstractItemView>

void CVCommitOpenEditor(QWidget* focused) {
    for (QWidget* above = focused ? focused->parentWidget() : nullptr; above; above = above->parentWidget()) {
        // An editor commits when it loses the focus. The table gets the focus, so that the arrow keys move between its
        // cells.
        if (qobject_cast<QAbstractItemView*>(above))
            return above->setFocus();
    }
}
