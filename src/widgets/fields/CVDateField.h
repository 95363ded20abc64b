#pragma once

#include "base/QBDate.h"
#include "format/QBDateFormatter.h"
#include "widgets/fields/CVFormattedField.h"

/// A day: typed in short, stepped with Up and Down, or chosen from a calendar that its button (or Alt+Down) opens. A
/// character that can be in no date is taken as typed, with a beep and a remark below the field: a panel that stops the
/// user at every keystroke would be worse than the mistake.
class CVDateField final : public CVFormattedField {
    Q_OBJECT

public:
    /// Holds today.
    explicit CVDateField(QWidget* parent = nullptr);

    /// The last day that was set or could be read.
    [[nodiscard]] QBDate QBDateValue() const { return mDate; }
    void setQBDateValue(const QBDate& date);
    [[nodiscard]] bool isBlank() const { return text().trimmed().isEmpty(); }

    [[nodiscard]] QString expectation() const override;

    void showCalendar();

signals:
    /// The user has typed a day (and left the field or pressed Return), be it the same one, or stepped to or chosen
    /// another. Not for a day that the program set.
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
    /// The day that the world knows: set from outside or announced.
    QBDate mKnownDate;
    /// Characters in the text that can be in no date.
    qsizetype mStrangers = 0;
};
