#pragma once

#include <QWidget>

class CVPreferenceStore;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;

/// One tab of the preferences: controls below each other, each written through the store, which outlives the pane.
class CVPreferencePane : public QWidget {
    Q_OBJECT

public:
    explicit CVPreferencePane(CVPreferenceStore& store, QWidget* parent);

    /// Shows what the settings are now.
    virtual void load() = 0;
    /// Takes what is being typed.
    virtual void endEditing() {}

protected:
    [[nodiscard]] CVPreferenceStore& store() const { return mStore; }
    [[nodiscard]] QFormLayout& form() const { return *mForm; }

    /// `label` stands before the control, `name` is what a screen reader says of it.
    QComboBox& addPopUp(const QString& label, const QString& name, const char* objectName);
    QCheckBox& addCheckBox(const QString& text, const QString& name, const char* objectName);
    /// A line that says more of the control above it.
    void addHint(const QString& text);

private:
    CVPreferenceStore& mStore;
    QFormLayout* mForm;
};
