#include "widgets/tables/CVOpenEditor.h"

#include <QAbstractItemView>

void CVCommitOpenEditor(QWidget* focused) {
    for (QWidget* above = focused ? focused->parentWidget() : nullptr; above; above = above->parentWidget()) {
        // An editor commits when it loses the focus, to its table, in which the arrow keys then go on.
        if (qobject_cast<QAbstractItemView*>(above))
            return above->setFocus();
    }
}
