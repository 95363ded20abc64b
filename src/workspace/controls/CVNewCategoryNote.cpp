#include "workspace/controls/CVNewCategoryNote.h"

#include "widgets/CVQuietTextColour.h"
#include "widgets/fields/CVCompletingComboBox.h"

#include <QAccessible>
#include <QEvent>

CVNewCategoryNote::CVNewCategoryNote(CVCompletingComboBox& category, QWidget* parent)
    : CVElidedLabel(parent)
    , mCategory(category) {
    setObjectName(QStringLiteral("mNewCategoryNote"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    adjustColour();
    connect(&category, &QComboBox::editTextChanged, this, &CVNewCategoryNote::compare);
    compare();
}

void CVNewCategoryNote::compare() {
    const QString note = mCategory.isNewText() ? tr("new category") : QString();
    if (text() == note)
        return;
    setText(note);
    mCategory.setAccessibleDescription(note);
    if (note.isEmpty())
        return;
    QAccessibleEvent announcement(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void CVNewCategoryNote::changeEvent(QEvent* event) {
    CVElidedLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        adjustColour();
}

void CVNewCategoryNote::adjustColour() {
    QPalette quiet = palette();
    quiet.setColor(QPalette::WindowText, CVQuietTextColour(palette()));
    setPalette(quiet);
}
