#pragma once

#include <QWidget>

class CVPreferenceStore;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QVBoxLayout;

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

    /// `label` stands before the control, `name` is what a screen reader says of it, `hint`, a line right below it,
    /// says more of it.
    QComboBox& addPopUp(const QString& label, const QString& name, const char* objectName, const QString& hint = {});
    QCheckBox& addCheckBox(const QString& text, const QString& name, const char* objectName);
    /// Appends to the layout of a control, or of several, a line that says more of `control`, the last of them.
    void addHint(QVBoxLayout& below, QWidget& control, const QString& text);

private:
    CVPreferenceStore& mStore;
    QFormLayout* mForm;
};
