#pragma once

#include "base/QBDate.h"
#include "format/QBDateFormatter.h"
#include "widgets/fields/CVFormattedField.h"

/// A field for a day. The user types it in a short form, steps it with Up and Down, or chooses it from the calendar
/// that its button or Alt+Down opens. A character that no date can contain is accepted with a beep and a note below the
/// field: an alert at every keystroke would be worse than the mistake.
class CVDateField final : public CVFormattedField {
    Q_OBJECT

public:
    /// The field starts with today.
    explicit CVDateField(QWidget* parent = nullptr);

    /// The day that was last set or read from a valid text.
    [[nodiscard]] QBDate QBDateValue() const { return mDate; }
    void setQBDateValue(const QBDate& date);
    [[nodiscard]] bool isBlank() const { return text().trimmed().isEmpty(); }

    [[nodiscard]] QString expectation() const override;

    void showCalendar();

signals:
    /// The user has typed a day and left the field or pressed Return, even when the day is unchanged, or has stepped to
    /// or chosen another day. Not emitted for a day that the program sets.
    void dateEntered(const QBDate& date);

protected:
    bool takeValue(const QString& text) override;
    void valueTaken() override;
    [[nodiscard]] QString valueText() const override;
    void readLocale() override;
    [[nodiscard]] QString usualText() const override;
    [[nodiscard]] int buttons() const override { return 1; }
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void step(int days);
    void choose(const QBDate& date);
    void checkTyped(const QString& text);

    QBDateFormatter mFormatter;
    QBDate mDate;
    /// The day that was last set by the program or announced by `dateEntered`.
    QBDate mKnownDate;
    /// The number of characters in the text that no date can contain.
    qsizetype mForeignCharacters = 0;
};
