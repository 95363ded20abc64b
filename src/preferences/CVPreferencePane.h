#pragma once

#include <QWidget>

class CVPreferenceStore;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QVBoxLayout;

/// One tab of the preferences, with its controls below each other. Each control writes its setting through the store,
/// which outlives the pane.
class CVPreferencePane : public QWidget {
    Q_OBJECT

public:
    explicit CVPreferencePane(CVPreferenceStore& store, QWidget* parent);

    /// Shows the current settings.
    virtual void load() = 0;
    /// Reads what the user is typing.
    virtual void endEditing() {}

protected:
    [[nodiscard]] CVPreferenceStore& store() const { return mStore; }
    [[nodiscard]] QFormLayout& form() const { return *mForm; }

    /// Adds a pop-up. `label` is shown before it, `name` is its accessible name, and `hint` is an explanation right
    /// below it.
    QComboBox& addPopUp(const QString& label, const QString& name, const char* objectName, const QString& hint = {});
    QCheckBox& addCheckBox(const QString& text, const QString& name, const char* objectName);
    /// Appends an explanation of `control` to a layout whose last control is `control`.
    void addHint(QVBoxLayout& below, QWidget& control, const QString& text);

private:
    CVPreferenceStore& mStore;
    QFormLayout* mForm;
};
