#pragma once

#include "preferences/CVPreferencePane.h"

class CVWholeNumberField;

/// The settings of how transactions are entered.
class CVEntryPane final : public CVPreferencePane {
    Q_OBJECT

public:
    explicit CVEntryPane(CVPreferenceStore& store, QWidget* parent = nullptr);

    void load() override;
    void endEditing() override;

    void clearFields(bool isOn);
    /// Stores and announces the number if it differs from the stored one.
    void setNumberOfItems(int number);

private:
    CVWholeNumberField* mNumberOfItemsInPopup;
    QCheckBox* mClearFields;
};
