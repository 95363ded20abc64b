#pragma once

#include "widgets/fields/CVWheelSafeComboBox.h"

#include <QStringList>

/// A text field with a list to choose from. Typing completes the text to the first matching item and selects the
/// completed part: typing on accepts the completion, Backspace removes it. Any text may be entered; setItems() leaves
/// the text unchanged.
class CVCompletingComboBox final : public CVWheelSafeComboBox {
    Q_OBJECT

public:
    explicit CVCompletingComboBox(QWidget* parent = nullptr);

    void setItems(const QStringList& items);
    [[nodiscard]] const QStringList& items() const { return mItems; }
    /// The entered text as it is to be recorded: an item unchanged, any other text without line breaks.
    [[nodiscard]] QString enteredText() const;
    /// Whether the entered text is neither empty nor an item.
    [[nodiscard]] bool isNewText() const;

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    QStringList mItems;
};
