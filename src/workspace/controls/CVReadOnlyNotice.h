#pragma once

#include <QWidget>

class QLabel;

/// The line that says why the budget can only be looked at, and offers another attempt to change it.
class CVReadOnlyNotice final : public QWidget {
    Q_OBJECT

public:
    explicit CVReadOnlyNotice(QWidget* parent = nullptr);

    /// Announces a text that replaces another one to screen readers.
    void setText(const QString& why);

signals:
    /// The user wants another attempt.
    void tryAgain();

private:
    QLabel* mText;
};
