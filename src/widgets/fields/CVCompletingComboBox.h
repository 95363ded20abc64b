#pragma once

#include "widgets/fields/CVSteadyComboBox.h"

#include <QStringList>

/// A text with a list to choose from. Typing completes to the first item that fits, with the rest selected: going on
/// accepts it, Backspace refuses it. Any text may be entered; new items leave it alone.
class CVCompletingComboBox final : public CVSteadyComboBox {
    Q_OBJECT

public:
    explicit CVCompletingComboBox(QWidget* parent = nullptr);

    void setItems(const QStringList& items);
    [[nodiscard]] const QStringList& items() const { return mItems; }
    /// What was entered, as it is to be recorded: an item as it is, any other text in one line.
    [[nodiscard]] QString enteredText() const;

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    QStringList mItems;
};
