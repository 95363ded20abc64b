#pragma once

#include "contents/CVVersionLines.h"

#include <QDialog>
#include <QTimer>

class CVDocument;
class CVHelpOpener;
class CVVersionLinePane;
class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;

/// A window that stays open beside the main window and shows what is not the same in the budget and elsewhere: the
/// lines, a remark on what was done with them, how far the reading is, and a row of buttons. Follows the budget. The
/// document may be replaced; it outlives the window.
class CVLineWindow : public QDialog {
    Q_OBJECT

public:
    void setDocument(CVDocument& document);

    /// Called for every way of closing the window; stops the reading.
    void done(int result) override;

protected:
    explicit CVLineWindow(CVDocument& document);

    /// Reads and compares anew.
    virtual void refresh() = 0;
    virtual void stopReading() = 0;
    virtual void updateFormats() = 0;
    virtual void keepLooks() = 0;
    /// The text beside the remark; `isLate` once the reading takes long.
    [[nodiscard]] virtual QString progress(bool isLate) const = 0;

    [[nodiscard]] CVDocument& document() const { return *mDocument; }
    [[nodiscard]] QBoxLayout& contents() const;
    /// Makes the lines; to be called once all that stands before them in the tab order is made.
    void makeLines(CVComparedWith with, const char* columnsKey, QWidget* parent);
    [[nodiscard]] CVVersionLinePane& lines() const { return *mLines; }
    /// The rows below the lines: call once all else stands.
    void addRemarks();
    QHBoxLayout& addButtonRow();
    QPushButton& addButton(QHBoxLayout& row, const QString& text, const char* name);
    /// The buttons that each such window has at the end of its row; without `help` there is no Help button.
    void addHelpAndClose(QHBoxLayout& row, CVHelpOpener* help, const QString& page);
    static void setTextOfButton(QPushButton& button, const QString& text);
    /// A number of lines or versions, as the user writes numbers.
    [[nodiscard]] static QString counted(qsizetype count);
    /// Gives the window its former frame, at first this many digits wide and lines high.
    void restoreFrame(const char* key, int widthInDigits, int heightInLines);

    void compareSoon();
    /// A reading has begun; its progress is shown only when it takes long.
    void readingBegan();
    void showProgress();
    /// Shows a remark and announces it to screen readers.
    void setRemark(const QString& remark);

    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void observe();

    CVDocument* mDocument;
    CVVersionLinePane* mLines = nullptr;
    QLabel* mRemark;
    QLabel* mProgress;
    /// Runs from a change of the budget on, so that several changes are compared once.
    QTimer mCompare;
    /// Runs from the beginning of a reading on: what is read sooner needs no progress.
    QTimer mShowsProgress;
};
