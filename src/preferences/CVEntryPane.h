#pragma once

#include "preferences/CVPreferencePane.h"

class CVWholeNumberField;

/// How transactions are entered.
class CVEntryPane final : public CVPreferencePane {
    Q_OBJECT

public:
    explicit CVEntryPane(CVPreferenceStore& store, QWidget* parent = nullptr);

    void load() override;
    void endEditing() override;

    void clearFields(bool isOn);
    /// Writes and announces a number that differs from the stored one.
    void setNumberOfItems(int number);

private:
    CVWholeNumberField* mNumberOfItemsInPopup;
    QCheckBox* mClearFields;
};
