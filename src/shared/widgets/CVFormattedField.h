#pragma once

#include <QLineEdit>

class QAction;

/// A text field that holds a value. What is typed is read when editing ends; a text that cannot be read stays as typed
/// and is marked with an icon and the reason, and the value stays what it was. An untouched text is never read again,
/// so that showing a value cannot change it.
class CVFormattedField : public QLineEdit {
    Q_OBJECT

public:
    explicit CVFormattedField(QWidget* parent = nullptr);

    /// Reads what was typed; called by itself when the field is left or Return is pressed.
    void endEditing();
    /// Whether the text, as of the last reading, stands for the value.
    [[nodiscard]] bool isReadable() const { return mReadable; }
    /// One sentence: what is expected.
    [[nodiscard]] virtual QString expectation() const = 0;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    /// Takes the value from the text; false, with nothing changed, when the text cannot be read.
    virtual bool takeValue(const QString& text) = 0;
    [[nodiscard]] virtual QString valueText() const = 0;
    /// The longest text that values usually have, and how many buttons the field shows beside it.
    [[nodiscard]] virtual QString usualText() const = 0;
    [[nodiscard]] virtual int buttons() const { return 0; }
    /// Shows the value in its usual form.
    void showValue();

private:
    void setReadable(bool readable);
    [[nodiscard]] QSize sizeWithButtons(int count) const;

    QAction* mMark;
    bool mReadable = true;
};
