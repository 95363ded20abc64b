#pragma once

#include "widgets/CVElidedLabel.h"

/// A quiet note that says into which set the entry strip records; hidden where that goes without saying.
class CVRecordingNote final : public CVElidedLabel {
    Q_OBJECT

public:
    explicit CVRecordingNote(QWidget* parent = nullptr);

    /// An absent name hides the note.
    void setSet(const std::optional<QString>& name);

protected:
    void changeEvent(QEvent* event) override;

private:
    void adjustColour();
};
