#pragma once

#include "model/QBDate.h"
#include "shared/format/QBDateFormatter.h"
#include "shared/widgets/CVFormattedField.h"

/// A day: typed in short, stepped with Up and Down, or chosen from a calendar that its button (or Alt+Down) opens.
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

protected:
    bool takeValue(const QString& text) override;
    [[nodiscard]] QString valueText() const override;
    [[nodiscard]] QString usualText() const override;
    [[nodiscard]] int buttons() const override { return 1; }
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void step(int days);

    QBDateFormatter mFormatter;
    QBDate mDate;
};
