#include "preferences/CVBudgetPane.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "format/QBLocale.h"
#include "preferences/CVPreferenceStore.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>

namespace {

constexpr int kDaysPerWeek = 7;

} // namespace

CVBudgetPane::CVBudgetPane(CVPreferenceStore& store, QWidget* parent) : CVPreferencePane(store, parent) {
    mStartDayOfWeek = &addPopUp(tr("&First day of the week:"), tr("First Day of Week"), "mStartDayOfWeek",
                                tr("The summary by days begins with it."));
    for (int day = 0; day < kDaysPerWeek; ++day)
        mStartDayOfWeek->addItem(QString());
    titleDays();
    mTodayColumn = &addPopUp(tr("&Today's column:"), tr("Today Column"), "mTodayColumn",
                             tr("Where the summary by weeks, two weeks or months shows the period of today."));
    mTodayColumn->addItems({tr("First"), tr("Second, after one earlier period"), tr("Third, after two earlier periods"),
                            tr("Fourth, after three earlier periods")});
    mShowAllCategories = &addCheckBox(tr("Show &all categories, also those without transactions"),
                                      tr("Show All Categories"), "mShowAllCategories");
    connect(mStartDayOfWeek, &QComboBox::activated, this, &CVBudgetPane::setStartDayfWeek);
    connect(mTodayColumn, &QComboBox::activated, this, &CVBudgetPane::setTodayColumn);
    connect(mShowAllCategories, &QCheckBox::clicked, this, &CVBudgetPane::showAllCategories);
}

void CVBudgetPane::load() {
    const QBUserDefaults& defaults = store().defaults();
    mStartDayOfWeek->setCurrentIndex(defaults.integerForKey(CVDefaultsKeys::kStartDayOfWeek));
    mTodayColumn->setCurrentIndex(defaults.integerForKey(CVDefaultsKeys::kTodayColumn));
    mShowAllCategories->setChecked(defaults.boolForKey(CVDefaultsKeys::kShowUnusedCategories));
}

void CVBudgetPane::setStartDayfWeek(int index) {
    store().setInteger(CVDefaultsKeys::kStartDayOfWeek, index, CVPreferenceStore::Change::Announced);
}

void CVBudgetPane::setTodayColumn(int index) {
    store().setInteger(CVDefaultsKeys::kTodayColumn, index, CVPreferenceStore::Change::Announced);
}

void CVBudgetPane::showAllCategories(bool isOn) {
    store().setInteger(CVDefaultsKeys::kShowUnusedCategories, isOn ? 1 : 0, CVPreferenceStore::Change::Announced);
}

void CVBudgetPane::changeEvent(QEvent* event) {
    CVPreferencePane::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        titleDays();
}

void CVBudgetPane::titleDays() {
    const QLocale locale = QBDateLocaleInForce();
    // The first item is Sunday, which QLocale numbers 7.
    for (int day = 0; day < kDaysPerWeek; ++day)
        mStartDayOfWeek->setItemText(day, locale.standaloneDayName(day == 0 ? kDaysPerWeek : day));
}
