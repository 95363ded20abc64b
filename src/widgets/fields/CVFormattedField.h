#pragma once

#include <QLineEdit>

class CVFieldNote;
class QAction;

/// A text field that holds a value. What is typed is read when editing ends; a text that cannot be read stays as typed
/// and is marked with an icon and the reason, and the value stays what it was. An untouched text is never read again,
/// so that showing a value cannot change it. A text that an assistive technology sets from outside counts as typed;
/// while the field has no focus it is read at once.
class CVFormattedField : public QLineEdit {
    Q_OBJECT

public:
    explicit CVFormattedField(QWidget* parent = nullptr);

    /// Reads what was typed; called by itself when the field is left or Return is pressed.
    void endEditing();
    /// Whether the text, as of the last reading, stands for the value.
    [[nodiscard]] bool isReadable() const { return mReadable; }
    /// Shows below the field what is expected, until the user types on or leaves it.
    void tellUnreadable();
    /// One sentence: what is expected.
    [[nodiscard]] virtual QString expectation() const = 0;

    /// Another locale is in force; called by itself when the event says so. What was typed is read in the former one,
    /// then the value is shown in the new one. An empty text stays empty, an unreadable one as it is.
    void localeChanged();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// The user has gone on to another field and left a text behind that cannot be read. Not when another window or a
    /// menu got the keyboard.
    void leftUnreadable();

protected:
    /// Takes the value from the text; false, with nothing changed, when the text cannot be read.
    virtual bool takeValue(const QString& text) = 0;
    /// Called when a text has been read and its value is shown, at the end of editing.
    virtual void valueTaken() {}
    /// While `valueTaken` runs: whether the value was typed.
    [[nodiscard]] bool wasTyped() const { return mWasTyped; }
    [[nodiscard]] virtual QString valueText() const = 0;
    /// Takes the forms of the locale in force from now on.
    virtual void readLocale() = 0;
    /// The longest text that values usually have, and how many buttons the field shows beside it.
    [[nodiscard]] virtual QString usualText() const = 0;
    [[nodiscard]] virtual int buttons() const { return 0; }

    /// Reads what was typed, if anything was, and shows the value in its usual form or marks the text; whether the text
    /// stands for the value now.
    bool readText();
    /// Shows the value in its usual form.
    void showValue();
    /// Shows a text that is no edit, and so is not read.
    void showText(const QString& text);
    /// A remark on what is being typed, shown below the field until editing ends and told to screen readers. An empty
    /// one takes the remark away.
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
