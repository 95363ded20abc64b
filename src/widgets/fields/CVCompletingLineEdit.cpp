#include "widgets/fields/CVCompletingLineEdit.h"

#include "widgets/fields/CVAllowAnyLength.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace {

/// A completion and the letters typed over it are at most two steps of the undo history.
constexpr int kMostSteps = 2;

bool isLetter(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !event.modifiers().testFlag(Qt::ControlModifier);
}

} // namespace

QString CVCompleteString(const QStringList& items, const QString& typed) {
    const auto found = std::find_if(items.cbegin(), items.cend(), [&typed](const QString& item) {
        return item.startsWith(typed, Qt::CaseInsensitive);
    });
    return found == items.cend() ? typed : *found;
}

CVCompletingLineEdit::CVCompletingLineEdit(const QStringList& items, QWidget* parent)
    : QLineEdit(parent)
    , mItems(items) {
    CVAllowAnyLength(*this);
}

void CVCompletingLineEdit::keyPressEvent(QKeyEvent* event) {
    const bool completed = isCompleted();
    const bool isTyping = isLetter(*event);
    const bool isHistory = event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo);
    const QString before = text();
    const int cursorBefore = cursorPosition();
    QLineEdit::keyPressEvent(event);
    // Typing the last letter of a completed item does not change the text and only moves the cursor.
    if (!isHistory && (text() != before || (isTyping && cursorPosition() != cursorBefore)))
        takeInput(completed, isTyping);
}

void CVCompletingLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    // An input method removes the selection long before it commits, so the completion is taken back first.
    if (isCompleted() && !(event->preeditString().isEmpty() && event->commitString().isEmpty()))
        takeBackCompletion(mTyped);
    QLineEdit::inputMethodEvent(event);
    if (!event->commitString().isEmpty() && event->preeditString().isEmpty())
        takeInput(false, true);
}

CVCompletingLineEdit::State CVCompletingLineEdit::state() const {
    return {text(), hasSelectedText() ? selectionStart() : cursorPosition(), selectedText().size()};
}

/// Whether the text and the selection are still as the last completion left them.
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
    const QString completed = CVCompleteString(mItems, typed);
    if (completed == typed)
        return;
    {
        const QSignalBlocker blocker(this);
        undo();
        replaceBy(completed);
        // The selection runs backwards, so that the cursor stands after the typed letters.
        setSelection(static_cast<int>(completed.size()), static_cast<int>(typed.size() - completed.size()));
    }
    mTyped = typed;
    mCompleted = completed;
    emit textChanged(completed);
}

/// Sets the text to `typed` and makes the undo history as if `typed` had been typed without a completion.
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

/// Changes the text to `replacement` in one edit. When `replacement` begins with the text before the selection, only
/// the selection is replaced; otherwise all of the text is.
void CVCompletingLineEdit::replaceBy(const QString& replacement) {
    const State before = state();
    const bool endsText = before.start + before.length == before.text.size();
    const bool goesOn = endsText && replacement.startsWith(before.text.left(before.start));
    if (!goesOn)
        selectAll();
    mBase = state();
    insert(replacement.mid(goesOn ? before.start : 0));
}
