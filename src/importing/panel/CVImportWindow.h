#pragma once

#include "importing/panel/CVImportReader.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class CVAlerts;
class CVDocument;
class CVElidedLabel;
class CVFilePanels;
class CVHelpOpener;
class CVImportLinePane;
class CVQuestionPane;
class CVRecordedLines;
class CVStatementPane;
class CVTargetPane;
class QBoxLayout;
class QLabel;
class QProgressBar;
class QPushButton;

/// The modal window with a statement: what was recognised and what is open, where the lines go, and the lines as they
/// will be recorded, which the user can change. Records nothing itself. All references outlive the window.
class CVImportWindow final : public QDialog {
    Q_OBJECT

public:
    using Source = CVImportReader::Source;
    /// What the user wants to import.
    struct Order {
        /// All lines of the statement as they will be recorded; the checked ones are to be recorded.
        CVImportLines lines;
        CVImportTargets targets;
        /// What the lines come from.
        std::shared_ptr<const CVStatement> statement;
        /// What was remembered of former imports.
        CVImportNotes notes;
    };

    /// Without `help` there is no Help button.
    CVImportWindow(CVDocument& document, CVFilePanels& panels, CVAlerts& alerts, CVHelpOpener* help, QWidget* parent);
    ~CVImportWindow() override;

    /// Reads a statement, which takes the place of another one.
    void read(const Source& source);
    [[nodiscard]] const Source& source() const { return mSource; }
    /// What is to be imported, once the user has agreed.
    [[nodiscard]] Order order() const;

    /// Tells of another file that the user chooses whether it is a statement; otherwise the window closes, and the file
    /// is `otherFile`. Without it every file is one.
    void setIsStatement(std::function<bool(const QString& path)> isStatement) { mIsStatement = std::move(isStatement); }
    [[nodiscard]] const std::optional<QString>& otherFile() const { return mOtherFile; }

    /// Asks the user for the file to import; absent when the user cancels.
    [[nodiscard]] static std::optional<QString> chooseStatement(CVFilePanels& panels, QWidget& asker);

    /// Asks first when the user would lose what was changed in the lines.
    void reject() override;
    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void addHeadline(QBoxLayout& contents);
    void addLines(QBoxLayout& contents);
    void addButtons(QBoxLayout& window, CVHelpOpener* help);

    void readAs(const CVStatementMapping& known);
    void takeStatement(const CVStatementFindings& findings);
    void takeLines(const CVPreparedLines& prepared);
    void takeFound(const CVImportLines& found);
    void takeAnswer(const CVStatementMapping& known);
    void prepare();
    void find();
    void begin();
    void finish();
    void showStatement(bool isAsLastTime);
    void showTargets();
    void targetsChanged();
    void chooseAnother();
    [[nodiscard]] CVImportTargets usualTargets(const CVImportNotes& notes) const;

    void showState();
    void showProgress();
    void showObstacle();
    /// Why nothing can be imported yet; empty when something can.
    [[nodiscard]] QString obstacle() const;
    void importLines();

    CVDocument& mDocument;
    CVFilePanels& mPanels;
    CVAlerts& mAlerts;
    Source mSource;
    CVStatementMapping mKnown;
    /// Null before it is read.
    std::shared_ptr<const CVStatement> mStatement;
    CVImportNotes mNotes;
    /// The budget as it is while the window is open.
    std::shared_ptr<const CVRecordedLines> mRecorded;
    std::function<bool(const QString& path)> mIsStatement;
    std::optional<QString> mOtherFile;
    bool mIsBusy = false;
    /// While changed lines are looked for: the window goes on meanwhile, but imports only behind it.
    bool mIsFinding = false;
    /// How many lines the user wanted to import meanwhile.
    std::optional<int> mImportsWhenFound;
    /// Whether the user has answered a question, and goes on with what comes then.
    bool mHasAnswered = false;
    /// Whether the user was asked about the changes and went on.
    bool mWasAsked = false;

    CVElidedLabel* mSummary;
    QLabel* mRemark;
    QPushButton* mColumns = nullptr;
    QPushButton* mAnother = nullptr;
    CVQuestionPane* mQuestions;
    CVStatementPane* mStatementPane;
    CVTargetPane* mTargets;
    CVImportLinePane* mLines;
    QLabel* mObstacle;
    QProgressBar* mProgress;
    QPushButton* mImport = nullptr;
    /// Runs from the beginning of the work on, then again and again: what is read sooner needs no progress.
    QTimer mShowsProgress;
    /// Null once the window is closed.
    std::unique_ptr<CVImportReader> mReader;
};
