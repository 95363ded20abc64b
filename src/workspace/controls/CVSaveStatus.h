#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/// The line that says whether everything is saved and offers another attempt after a failure. The line is empty at
/// first, because there may be no file yet. It begins with a remark on what a command has done, where nothing else in
/// the window shows that.
class CVSaveStatus final : public QWidget {
    Q_OBJECT

public:
    explicit CVSaveStatus(QWidget* parent = nullptr);

    void setSaving();
    void setSaved();
    /// `reason` says in whole sentences what failed and what that means.
    void setFailed(const QString& reason);
    /// Shows a remark until the next remark or a failure, and announces it to screen readers at once.
    void remark(const QString& text);

signals:
    /// The user wants another attempt to save.
    void tryAgain();

private:
    enum class Outcome { Open, Fine, Failed };
    void show(const QString& text, Outcome outcome);

    QLabel* mRemark;
    QLabel* mIcon;
    QLabel* mText;
    QPushButton* mTryAgain;
};
