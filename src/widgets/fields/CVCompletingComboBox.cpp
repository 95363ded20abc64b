#include "widgets/fields/CVCompletingComboBox.h"

#include "base/QBXMLText.h"
#include "widgets/fields/CVCompletingLineEdit.h"

#include <QFocusEvent>
#include <QSignalBlocker>

namespace {

constexpr int kVisibleItems = 16;
constexpr int kShortestField = 5;

} // namespace

CVCompletingComboBox::CVCompletingComboBox(QWidget* parent) : CVWheelSafeComboBox(parent) {
    setLineEdit(new CVCompletingLineEdit(mItems, this));
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(kVisibleItems);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kShortestField);
}

void CVCompletingComboBox::setItems(const QStringList& items) {
    // Setting the text again would lose the cursor and the undo history.
    if (items == mItems)
        return;
    mItems = items;
    const QString text = currentText();
    const QSignalBlocker blocker(this);
    clear();
    addItems(items);
    setCurrentIndex(-1);
    setEditText(text);
}

QString CVCompletingComboBox::enteredText() const {
    const QString text = xml_storableText(currentText());
    return mItems.contains(text) ? text : xml_storableLine(text);
}

bool CVCompletingComboBox::isNewText() const {
    const QString text = enteredText();
    return !text.isEmpty() && !mItems.contains(text);
}

void CVCompletingComboBox::focusInEvent(QFocusEvent* event) {
    CVWheelSafeComboBox::focusInEvent(event);
    // The text is selected as after the Tab key, so that typing replaces it.
    if (event->reason() == Qt::OtherFocusReason)
        lineEdit()->selectAll();
}
