#pragma once

#include "preferences/CVPreferencePane.h"

/// The settings of how the budget grid and the reports show the budget.
class CVBudgetPane final : public CVPreferencePane {
    Q_OBJECT

public:
    explicit CVBudgetPane(CVPreferenceStore& store, QWidget* parent = nullptr);

    void load() override;

    void setStartDayfWeek(int index);
    void setTodayColumn(int index);
    void showAllCategories(bool isOn);

protected:
    void changeEvent(QEvent* event) override;

private:
    void titleDays();

    QComboBox* mStartDayOfWeek;
    QComboBox* mTodayColumn;
    QCheckBox* mShowAllCategories;
};
