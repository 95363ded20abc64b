#pragma once

#include "widgets/CVElidedLabel.h"

class CVCompletingComboBox;

/// A quiet note that the name in the field of a category is none of those offered, so that it would make a new
/// category. Claims no width, so that nothing moves when the note comes and goes.
class CVNewCategoryNote final : public CVElidedLabel {
    Q_OBJECT

public:
    /// `category` outlives the note.
    CVNewCategoryNote(CVCompletingComboBox& category, QWidget* parent);

    /// Compares the name with the categories now offered. The note does so itself when the name changes.
    void compare();

protected:
    void changeEvent(QEvent* event) override;

private:
    void adjustColour();

    CVCompletingComboBox& mCategory;
};
