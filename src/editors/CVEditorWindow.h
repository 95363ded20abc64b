#pragma once

#include <QDialog>

class CVHelpOpener;
class QBUserDefaults;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// A modal window with contents, a line for remarks and a row of buttons. Escape, Ctrl+W and the close button close the
/// window and commit what the user is typing; in a cell, Escape first discards the edit. The window's frame is
/// remembered. References the user defaults, which outlive it.
class CVEditorWindow : public QDialog {
    Q_OBJECT

public:
    /// `frameKey` is the key under which the user defaults keep the frame.
    CVEditorWindow(const QString& title, const char* frameKey, QBUserDefaults& defaults, QWidget* parent);

    /// Called for every way in which the user closes the window.
    void done(int result) override;

    /// Commits what the user is typing and saves unsaved changes.
    virtual void keepEntries() {}

protected:
    /// The layout above the remark and the buttons.
    [[nodiscard]] QVBoxLayout& contents() const { return *mContents; }
    /// Appends a button to the row. Its accessible name is the text without the mnemonic mark.
    QPushButton& addButton(const QString& text);
    /// Adds a Help button that opens that page of the help book; adds nothing when `help` is null.
    void addHelpButton(CVHelpOpener* help, const QString& page);
    /// Restores the remembered frame. The arguments give the size of a window without one, in digits and lines of its
    /// font.
    void restoreFrame(int widthInDigits, int heightInLines);

    /// Shows a remark below the contents; empty for none. The line takes up room from the first call on.
    void setRemark(const QString& remark);
    /// Announces the remark to screen readers.
    void announceRemark() const;

private:
    QPushButton* makeButton(const QString& text);

    const char* mFrameKey;
    QBUserDefaults& mDefaults;
    QVBoxLayout* mContents;
    QLabel* mRemark;
    QHBoxLayout* mActions;
    QHBoxLayout* mGeneral;
};
