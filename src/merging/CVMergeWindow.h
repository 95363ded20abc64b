#pragma once

#include "comparing/CVLineWindow.h"
#include "merging/CVMergeReader.h"

#include <memory>
#include <vector>

class CVElidedLabel;
class CVMergeHost;
class QComboBox;
class QLabel;
class QPushButton;

/// The window with the changes of other files: of the chosen one, what bringing all in would add to, change in and
/// remove from the budget, and what was changed on both sides. Or the window with a budget that is imported: what it
/// has and ours has not; the window closes once all is in. All references but the document outlive the window.
class CVMergeWindow final : public CVLineWindow {
    Q_OBJECT

public:
    /// Without `help` there is no Help button.
    CVMergeWindow(CVDocument& document, CVMergeHost& host, CVHelpOpener* help = nullptr,
                  CVMergePurpose purpose = CVMergePurpose::Changes);
    ~CVMergeWindow() override;

    /// Adds a file to those that can be chosen; one of the same path takes the place of the former. Chooses it unless
    /// the user is looking at another. A file that is imported takes the place of any other.
    void offer(const CVMergeSource& source);
    /// Who wants to see the window. One that comes by itself takes no key that is typed elsewhere.
    enum class Asked : bool { ByItself, ByUser };
    /// Shows the window, or brings it to the front.
    void showWindow(Asked asked = Asked::ByUser);
    [[nodiscard]] bool hasSource(const QString& path) const;
    [[nodiscard]] std::size_t countSources() const { return mOffered.size(); }
    /// Closes the window and forgets all files, because the budget is another one.
    void forgetSources();

    void done(int result) override;

private:
    struct Offered {
        CVMergeSource source;
        /// What was found when it was read; later on, only the rest of that is compared.
        CVMergeFindings first = {};
        /// Whether lines of it were brought in.
        bool wasTaken = false;
        /// Whether the budget holds all of it.
        bool isIn = false;
    };

    void addHeadline();
    void addButtons(CVHelpOpener* help);

    void refresh() override;
    void stopReading() override;
    void updateFormats() override;
    void keepLooks() override;
    [[nodiscard]] QString progress(bool isLate) const override;
    void listSources();
    [[nodiscard]] bool isImport() const { return mPurpose == CVMergePurpose::Import; }
    /// Null when there is none.
    [[nodiscard]] Offered* chosen();
    void sourcePicked();
    void take(const CVMergeFindings& findings);
    void showLines();
    [[nodiscard]] CVVersionLines::ChangedTwice linesChangedTwice();
    void showState();
    void showHeadline();
    [[nodiscard]] QString headline(const QString& path) const;
    [[nodiscard]] QString textBelow(const Offered* offered) const;
    void showMessage();
    void updateButtons();
    void bringIn(const CVBudgetDifferences& lines, int count);

    CVMergePurpose mPurpose;
    CVMergeHost& mHost;
    QLabel* mHeadline;
    CVElidedLabel* mPlace;
    QLabel* mSourcesLabel;
    QComboBox* mSources;
    QLabel* mBothSides;
    QPushButton* mBringIn = nullptr;
    QPushButton* mBringInAll = nullptr;
    std::vector<Offered> mOffered;
    /// What the lines are made of; its path is empty when there are none.
    CVMergeFindings mShown;
    /// Whether the lines are those of the present budget.
    bool mIsCurrent = false;
    /// Null while the window is closed.
    std::unique_ptr<CVMergeReader> mReader;
};
