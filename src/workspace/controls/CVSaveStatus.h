#pragma once

#include <QTimer>
#include <QWidget>

class CVElidedLabel;
class QLabel;
class QPushButton;

/// The line that says whether everything is saved and offers another attempt after a failure. The line is empty at
/// first, because there may be no file yet. The line begins with a remark on what a command has done, where nothing
/// else in the window shows that.
class CVSaveStatus final : public QWidget {
    Q_OBJECT

public:
    explicit CVSaveStatus(QWidget* parent = nullptr);

    void setSaving();
    void setSaved();
    /// Says nothing of whether everything is saved.
    void setUnknown();
    /// Whether deleting earlier versions would help, which is then offered.
    enum class MakeRoom : bool { No, Yes };
    /// `reason` says in whole sentences what failed and what that means. After "Try Again", the failure is shown half a
    /// second later at the earliest, so that the user sees the attempt.
    void setFailed(const QString& reason, MakeRoom makeRoom = MakeRoom::No);
    /// What a remark leads to, by a button behind it.
    enum class Offer { Nothing, Versions, OtherFile, TakeBack };
    /// Shows a remark until the next remark or a failure, and announces it to screen readers at once.
    void remark(const QString& text, Offer offer = Offer::Nothing);

    /// Whether there is an import to take back: then its button stays, whatever is remarked, except beside a failure.
    void setCanTakeBack(bool can);

signals:
    /// The user wants another attempt to save.
    void tryAgain();
    /// The user wants to see the earlier versions.
    void versionsRequested();
    /// The user wants to see what another file has that the budget lacks.
    void otherFileRequested();
    /// The user wants to take back the last import.
    void takeBackRequested();
    /// The user wants to delete earlier versions.
    void makeRoom();

private:
    enum class Outcome { Saving, Fine, Failed };
    void show(const QString& text, Outcome outcome);
    void showFailure();
    void show(Offer offer);
    void showTakeBack();

    CVElidedLabel* mRemark;
    QPushButton* mShowVersions;
    QPushButton* mShowOtherFile;
    QPushButton* mTakeBack;
    QLabel* mIcon;
    QLabel* mText;
    QPushButton* mMakeRoom;
    QPushButton* mTryAgain;
    /// Runs while the attempt that the user asked for is shown whatever its outcome.
    QTimer mAttempt;
    /// Runs from the beginning of a save to its end.
    QTimer mSlow;
    /// The text of the last failure; empty once another save has begun.
    QString mFailure;
    MakeRoom mRoomHelps = MakeRoom::No;
    Offer mOffer = Offer::Nothing;
    bool mCanTakeBack = false;
};
