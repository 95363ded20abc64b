#include "preferences/CVEntryPane.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "preferences/CVPreferenceStore.h"
#include "preferences/CVWholeNumberField.h"

#include <QCheckBox>
#include <QFormLayout>

CVEntryPane::CVEntryPane(CVPreferenceStore& store, QWidget* parent)
    : CVPreferencePane(store, parent)
    , mNumberOfItemsInPopup(new CVWholeNumberField(this)) {
    mNumberOfItemsInPopup->setObjectName(QStringLiteral("mNumberOfItemsInPopup"));
    mNumberOfItemsInPopup->setAccessibleName(tr("Items in Pop-up"));
    form().addRow(tr("&Items in the “Paid To/From” list:"), mNumberOfItemsInPopup);
    mClearFields = &addCheckBox(tr("Clear the &fields after recording"), tr("Clear Fields"), "mClearFields");
    connect(mNumberOfItemsInPopup, &CVWholeNumberField::entered, this, &CVEntryPane::setNumberOfItems);
    connect(mClearFields, &QCheckBox::clicked, this, &CVEntryPane::clearFields);
}

void CVEntryPane::load() {
    const QBUserDefaults& defaults = store().defaults();
    mNumberOfItemsInPopup->setIntegerValue(defaults.integerForKey(CVDefaultsKeys::kNumberOfItems));
    mClearFields->setChecked(defaults.boolForKey(CVDefaultsKeys::kClearFields));
}

void CVEntryPane::endEditing() {
    mNumberOfItemsInPopup->endEditing();
}

void CVEntryPane::clearFields(bool isOn) {
    store().setBool(CVDefaultsKeys::kClearFields, isOn, CVPreferenceStore::Change::Silent);
}

void CVEntryPane::setNumberOfItems(int number) {
    if (number != store().defaults().integerForKey(CVDefaultsKeys::kNumberOfItems))
        store().setInteger(CVDefaultsKeys::kNumberOfItems, number, CVPreferenceStore::Change::Announced);
}
