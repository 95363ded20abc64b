#include "widgets/tables/CVRefuseUnreadableText.h"

#include "widgets/CVIsReturnKey.h"
#include "widgets/fields/CVFormattedField.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

bool endsEditing(const QEvent& event) {
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return CVIsReturnKey(key) || key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

} // namespace

bool CVRefuseUnreadableText(QObject* editor, QEvent* event) {
    auto* const field = qobject_cast<CVFormattedField*>(editor);
    if (!field || !endsEditing(*event))
        return false;
    field->endEditing();
    if (field->isReadable())
        return false;
    field->tellUnreadable();
    QApplication::beep();
    return true;
}
