#pragma once

#include <QLineEdit>

class CVFieldNote;
class QAction;

/// A text field that holds a value. The text is read when editing ends. A text that cannot be read stays as typed and
/// is marked with an icon and the reason, and the value stays unchanged. A text that was not edited is never read
/// again, so that showing a value cannot change it. A text that an assistive technology sets counts as typed and is
/// read at once while the field has no focus.
class CVFormattedField : public QLineEdit {
    Q_OBJECT

public:
    explicit CVFormattedField(QWidget* parent = nullptr);

    /// Reads the typed text. The field calls this itself when it loses the focus or Return is pressed.
    void endEditing();
    /// Whether the text could be read at the last reading.
    [[nodiscard]] bool isReadable() const { return mReadable; }
    /// Shows the expectation below the field until the user types on or leaves the field.
    void tellUnreadable();
    /// One sentence that says what the user should type.
    [[nodiscard]] virtual QString expectation() const = 0;

    /// Takes over a new locale; the field calls this itself on QEvent::LocaleChange. The typed text is read in the
    /// former locale, then the value is shown in the new one. An empty or unreadable text stays as it is.
    void localeChanged();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// The user has moved the focus to another field and left a text that cannot be read. Not emitted when another
    /// window or a menu takes the focus.
    void leftUnreadable();

protected:
    /// Reads the value from the text; false, with nothing changed, when the text cannot be read.
    virtual bool takeValue(const QString& text) = 0;
    /// Called at the end of editing, after a text has been read and its value is shown.
    virtual void valueTaken() {}
    /// While `valueTaken` runs: whether the value was typed.
    [[nodiscard]] bool wasTyped() const { return mWasTyped; }
    [[nodiscard]] virtual QString valueText() const = 0;
    /// Takes the formats of the locale that is now in force.
    virtual void readLocale() = 0;
    /// The longest text that a usual value has; it sets the field's width.
    [[nodiscard]] virtual QString usualText() const = 0;
    /// The number of buttons that the field shows beside its text.
    [[nodiscard]] virtual int buttons() const { return 0; }

    /// Reads the text if it was edited, then shows the value in its usual form or marks the text. Whether the text
    /// could be read.
    bool readText();
    /// Shows the value in its usual form.
    void showValue();
    /// Shows a text without counting it as an edit, so that the text is not read.
    void showText(const QString& text);
    /// Shows a remark on the text being typed below the field until editing ends, and tells it to screen readers. An
    /// empty `note` hides the remark.
    void showNote(const QString& note);
    void changeEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void setReadable(bool readable);
    void explain();
    [[nodiscard]] QSize sizeWithButtons(int count) const;

    QAction* mMark;
    CVFieldNote* mNote;
    bool mReadable = true;
    bool mWasTyped = false;
    QString mShownText;
};
