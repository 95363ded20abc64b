#pragma once

#include "budget/CVDayRange.h"

#include <QWidget>

class CVDateField;
class QComboBox;

/// A row of controls for a range of days: a pop-up of presets, the first day and the last day. The row only announces
/// what the user enters. Its owner knows the range of each preset and the allowed days, and shows them with the
/// setters, which emit nothing.
class CVRangeControls final : public QWidget {
    Q_OBJECT

public:
    struct Naming {
        QLatin1StringView objectName;
        QString accessibleName;
    };

    CVRangeControls(const Naming& preset, const Naming& start, const Naming& end, QWidget* parent = nullptr);

    /// The index of the preset, 0 to 7; -1 when none is shown.
    [[nodiscard]] int preset() const;
    /// The days that were last set or entered; `start` may be after `end`.
    [[nodiscard]] CVDayRange range() const;

    /// Shows the preset with that index, 0 to 7; any other index shows none.
    void setPreset(int index);
    void setRange(const CVDayRange& range);
    void setStart(const QBDate& start);
    void setEnd(const QBDate& end);

signals:
    /// The user chose a preset, which may be the one already shown.
    void presetPicked(int index);
    /// The user entered a day, which may be the one already shown. Not emitted for a text that is no date: the old day
    /// stays and the field says so.
    void startEntered(const QBDate& date);
    void endEntered(const QBDate& date);

private:
    QComboBox* mPreset;
    CVDateField* mStart;
    CVDateField* mEnd;
};
