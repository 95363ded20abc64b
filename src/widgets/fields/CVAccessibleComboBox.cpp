#include "widgets/fields/CVAccessibleComboBox.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

#include <memory>

namespace {

enum Child { List, Field };

QAccessibleInterface* describe(const QString& /*className*/, QObject* object) {
    auto* const box = qobject_cast<QComboBox*>(object);
    // The toolkit takes ownership of the interface.
    return box ? std::make_unique<CVAccessibleComboBox>(*box).release() : nullptr;
}

} // namespace

CVAccessibleComboBox::CVAccessibleComboBox(QComboBox& box) : QAccessibleWidget(&box, QAccessible::ComboBox) {}

void CVAccessibleComboBox::install() {
    QAccessible::installFactory(describe);
}

int CVAccessibleComboBox::childCount() const {
    return box().isEditable() ? Field + 1 : List + 1;
}

QAccessibleInterface* CVAccessibleComboBox::child(int index) const {
    if (index == List)
        return QAccessible::queryAccessibleInterface(box().view());
    if (index == Field && box().isEditable())
        return QAccessible::queryAccessibleInterface(box().lineEdit());
    return nullptr;
}

int CVAccessibleComboBox::indexOfChild(const QAccessibleInterface* child) const {
    if (child->object() == box().view())
        return List;
    return box().isEditable() && child->object() == box().lineEdit() ? Field : -1;
}

QString CVAccessibleComboBox::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? box().currentText() : QAccessibleWidget::text(kind);
}

QAccessible::State CVAccessibleComboBox::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = box().view()->isVisible();
    state.editable = box().isEditable();
    return state;
}

QStringList CVAccessibleComboBox::actionNames() const {
    return {showMenuAction(), pressAction()};
}

void CVAccessibleComboBox::doAction(const QString& name) {
    if (name == showMenuAction() || name == pressAction()) {
        if (box().view()->isVisible())
            box().hidePopup();
        else
            box().showPopup();
    } else
        QAccessibleWidget::doAction(name);
}

QComboBox& CVAccessibleComboBox::box() const {
    return *static_cast<QComboBox*>(widget());
}
