#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/// The quiet line that says whether everything is saved, and offers to try again when it is not. Says nothing at first:
/// there may be no file in which anything could be. At its beginning stands what a command has done, where nothing else
/// would show that.
class CVSaveStatus final : public QWidget {
    Q_OBJECT

public:
    explicit CVSaveStatus(QWidget* parent = nullptr);

    void setSaving();
    void setSaved();
    /// `reason` says what failed and what that means, in whole sentences.
    void setFailed(const QString& reason);
    /// Stays until the next remark or a failure; screen readers are told at once.
    void remark(const QString& text);

signals:
    /// The user asks for another attempt to save.
    void tryAgain();

private:
    enum class Outcome { Open, Fine, Failed };
    void show(const QString& text, Outcome outcome);

    QLabel* mRemark;
    QLabel* mIcon;
    QLabel* mText;
    QPushButton* mTryAgain;
};
