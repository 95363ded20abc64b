#include "widgets/fields/CVCompletingLineEdit.h"

#include "widgets/fields/CVAnyLength.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace {

/// Typing over a completion, the completion itself, and one to spare.
constexpr int kMostSteps = 3;

bool isLetter(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !event.modifiers().testFlag(Qt::ControlModifier);
}

} // namespace

QString CVCompletedString(const QStringList& items, const QString& typed) {
    const auto found = std::find_if(items.cbegin(), items.cend(), [&typed](const QString& item) {
        return item.startsWith(typed, Qt::CaseInsensitive);
    });
    return found == items.cend() ? typed : *found;
}

CVCompletingLineEdit::CVCompletingLineEdit(const QStringList& items, QWidget* parent)
    : QLineEdit(parent)
    , mItems(items) {
    CVTakeAnyLength(*this);
}

void CVCompletingLineEdit::keyPressEvent(QKeyEvent* event) {
    const bool completed = isCompleted();
    const bool isTyping = isLetter(*event);
    const bool isHistory = event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo);
    const QString before = text();
    const int cursorBefore = cursorPosition();
    QLineEdit::keyPressEvent(event);
    // The last letter of an item leaves the text as it was completed and only moves the cursor.
    if (!isHistory && (text() != before || (isTyping && cursorPosition() != cursorBefore)))
        takeInput(completed, isTyping);
}

void CVCompletingLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    // An input method takes the selection away long before it commits.
    if (isCompleted() && !(event->preeditString().isEmpty() && event->commitString().isEmpty()))
        takeBackCompletion(mTyped);
    QLineEdit::inputMethodEvent(event);
    if (!event->commitString().isEmpty() && event->preeditString().isEmpty())
        takeInput(false, true);
}

CVCompletingLineEdit::State CVCompletingLineEdit::state() const {
    return {text(), hasSelectedText() ? selectionStart() : cursorPosition(), selectedText().size()};
}

/// Whether the text is still as the last completion left it.
bool CVCompletingLineEdit::isCompleted() const {
    return !mTyped.isEmpty() && text() == mCompleted && selectedText() == mCompleted.mid(mTyped.size()) &&
           (hasSelectedText() || cursorPosition() == text().size());
}

void CVCompletingLineEdit::takeInput(bool wasCompleted, bool mayComplete) {
    if (wasCompleted) {
        QString typed = text();
        const qsizetype kept = std::min(typed.size(), mTyped.size());
        takeBackCompletion(typed.replace(0, kept, mTyped.left(kept)));
    }
    mTyped.clear();
    if (mayComplete && cursorPosition() == text().size())
        complete();
}

void CVCompletingLineEdit::complete() {
    const QString typed = text();
    const QString completed = CVCompletedString(mItems, typed);
    if (completed == typed)
        return;
    {
        const QSignalBlocker blocker(this);
        undo();
        replaceBy(completed);
        // Backwards, so that the cursor stands behind what was typed.
        setSelection(static_cast<int>(completed.size()), static_cast<int>(typed.size() - completed.size()));
    }
    mTyped = typed;
    mCompleted = completed;
    emit textChanged(completed);
}

/// The text becomes `typed`, and its history as if that had been typed without a completion.
void CVCompletingLineEdit::takeBackCompletion(const QString& typed) {
    {
        const QSignalBlocker blocker(this);
        for (int step = 0; step < kMostSteps && state() != mBase; ++step)
            undo();
        if (state() == mBase)
            replaceBy(typed);
        else
            setText(typed);
    }
    emit textChanged(typed);
}

/// Puts what `replacement` has more than the text, or else all of it, into the place of the selection: one edit.
void CVCompletingLineEdit::replaceBy(const QString& replacement) {
    const State before = state();
    const bool endsText = before.start + before.length == before.text.size();
    const bool goesOn = endsText && replacement.startsWith(before.text.left(before.start));
    if (!goesOn)
        selectAll();
    mBase = state();
    insert(replacement.mid(goesOn ? before.start : 0));
}
