#include "workspace/controls/CVProposedText.h"

#include <QEvent>
#include <QLineEdit>

CVProposedText::CVProposedText(QLineEdit& field, QWidget& focused) : QObject(&focused), mField(field) {
    connect(&field, &QLineEdit::textEdited, this, &CVProposedText::settle);
    focused.installEventFilter(this);
}

void CVProposedText::propose(const QString& text) {
    const QString shown = mField.text();
    const bool isProposal = !mProposed.isEmpty() && shown == mProposed;
    if ((!shown.isEmpty() && !isProposal) || shown == text)
        return;
    mField.setText(text);
    // The selection runs backwards, so that the beginning of a long text is seen.
    mField.setSelection(static_cast<int>(text.size()), -static_cast<int>(text.size()));
    mProposed = text;
}

bool CVProposedText::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut)
        settle();
    return QObject::eventFilter(watched, event);
}
