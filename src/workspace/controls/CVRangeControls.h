#pragma once

#include "budget/CVDayRange.h"

#include <QWidget>

class CVDateField;
class QComboBox;

/// A row of controls for a range of days: a pop-up of presets, the first and the last day. It announces what the user
/// enters and decides nothing: which range a preset stands for and which days are allowed, its owner knows and shows
/// with the setters, which announce nothing.
class CVRangeControls final : public QWidget {
    Q_OBJECT

public:
    struct Naming {
        QLatin1StringView objectName;
        QString accessibleName;
    };

    CVRangeControls(const Naming& preset, const Naming& start, const Naming& end, QWidget* parent = nullptr);

    /// 0 to 7; -1 when none is shown.
    [[nodiscard]] int preset() const;
    /// The days last set or entered, in whatever order.
    [[nodiscard]] CVDayRange range() const;

    /// 0 to 7; any other index shows none.
    void setPreset(int index);
    void setRange(const CVDayRange& range);
    void setStart(const QBDate& start);
    void setEnd(const QBDate& end);

signals:
    /// The user chose that item, be it anew or again.
    void presetPicked(int index);
    /// The user entered a day, be it the one that stood there. A text that is no date enters none: the old day stays
    /// and the field says so.
    void startEntered(const QBDate& date);
    void endEntered(const QBDate& date);

private:
    QComboBox* mPreset;
    CVDateField* mStart;
    CVDateField* mEnd;
};
