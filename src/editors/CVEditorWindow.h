#pragma once

#include <QDialog>

class CVHelpOpener;
class QBUserDefaults;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// A modal window with contents, a line for remarks and a row of buttons. Escape, Ctrl+W and its close button close it;
/// what is being typed then is kept, unless Escape has ended the typing before. Its frame is remembered. References the
/// user defaults, which outlive it.
class CVEditorWindow : public QDialog {
    Q_OBJECT

public:
    /// Under `frameKey` the frame is kept in the user defaults.
    CVEditorWindow(const QString& title, const char* frameKey, QBUserDefaults& defaults, QWidget* parent);

    /// Every way in which the user closes the window leads here.
    void done(int result) override;

    /// Takes what is being typed and saves what is not saved yet.
    virtual void keepEntries() {}

protected:
    /// Above the remarks and the buttons.
    [[nodiscard]] QVBoxLayout& contents() const { return *mContents; }
    /// Appends a button to the row; the text less its mnemonic is its accessible name.
    QPushButton& addButton(const QString& text);
    /// Adds the button that opens that page; without anyone to show it there is no button.
    void addHelpButton(CVHelpOpener* help, const QString& page);
    /// The size of a window that has no frame yet, in letters of its font.
    void restoreFrame(int widthInDigits, int heightInLines);

    /// The line below the contents, which is there from the first call on; empty for nothing to remark.
    void setRemark(const QString& remark);
    /// Reads the remark out to those who do not see it.
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
