#include "shared/widgets/CVCompletingComboBox.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr int kVisibleItems = 16;
constexpr int kShortestText = 6;

/// The text of the box. While a completion stands, the letters as they were typed are kept, so that going on with
/// another text, or refusing, brings them back.
class CompletingLineEdit final : public QLineEdit {
public:
    CompletingLineEdit(const CVCompletingComboBox& box, QWidget* parent) : QLineEdit(parent), mBox(box) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isTyping = !event->text().isEmpty() && event->text().front().isPrint();
        const bool completed = isCompleted();
        const QString before = text();
        const int cursorBefore = cursorPosition();
        QLineEdit::keyPressEvent(event);
        // The last letter of an item leaves the text as it was completed and only moves the cursor.
        if (text() != before || (isTyping && cursorPosition() != cursorBefore))
            takeInput(completed, isTyping);
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        const bool completed = isCompleted();
        QLineEdit::inputMethodEvent(event);
        if (!event->commitString().isEmpty() && event->preeditString().isEmpty())
            takeInput(completed, true);
    }

private:
    /// Whether the text is still as the last completion left it.
    [[nodiscard]] bool isCompleted() const {
        return !mTyped.isEmpty() && text() == mCompleted && selectedText() == mCompleted.mid(mTyped.size()) &&
               (hasSelectedText() || cursorPosition() == text().size());
    }

    void takeInput(bool wasCompleted, bool mayComplete) {
        QString typed = text();
        if (wasCompleted) {
            const qsizetype kept = std::min(typed.size(), mTyped.size());
            typed.replace(0, kept, mTyped.left(kept));
        }
        const int cursor = cursorPosition();
        mTyped.clear();
        if (mayComplete && cursor == typed.size())
            complete(typed);
        else if (typed != text()) {
            setText(typed);
            setCursorPosition(cursor);
        }
    }

    void complete(const QString& typed) {
        mTyped = typed;
        mCompleted = CVCompletedString(mBox.items(), typed);
        if (mCompleted != text())
            setText(mCompleted);
        // Backwards, so that the cursor stands behind what was typed.
        setSelection(static_cast<int>(mCompleted.size()), static_cast<int>(typed.size() - mCompleted.size()));
    }

    const CVCompletingComboBox& mBox;
    QString mTyped;
    QString mCompleted;
};

} // namespace

QString CVCompletedString(const QStringList& items, const QString& typed) {
    const auto found = std::find_if(items.cbegin(), items.cend(), [&typed](const QString& item) {
        return item.startsWith(typed, Qt::CaseInsensitive);
    });
    return found == items.cend() ? typed : *found;
}

CVCompletingComboBox::CVCompletingComboBox(QWidget* parent) : CVSteadyComboBox(parent) {
    setLineEdit(new CompletingLineEdit(*this, this));
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(kVisibleItems);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kShortestText);
}

void CVCompletingComboBox::setItems(const QStringList& items) {
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

void CVCompletingComboBox::focusInEvent(QFocusEvent* event) {
    CVSteadyComboBox::focusInEvent(event);
    // As after the Tab key: what is typed next replaces the text.
    if (event->reason() == Qt::OtherFocusReason)
        lineEdit()->selectAll();
}
