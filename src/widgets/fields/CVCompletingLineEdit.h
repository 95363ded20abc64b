#pragma once

#include <QLineEdit>
#include <QStringList>

/// The first of `items` that begins with `typed`, ignoring case; `typed` itself when none does.
[[nodiscard]] QString CVCompleteString(const QStringList& items, const QString& typed);

/// A line edit that completes its text while the user types. The letters are kept as they were typed, so that typing on
/// with another text or pressing Backspace restores them. The typed letter and its completion are one edit: one undo
/// removes both.
class CVCompletingLineEdit final : public QLineEdit {
    Q_OBJECT

public:
    /// `items` outlives the field.
    CVCompletingLineEdit(const QStringList& items, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    /// A text with its selection; where nothing is selected, `start` is the cursor's position and `length` is 0.
    struct State {
        QString text;
        qsizetype start = 0;
        qsizetype length = 0;

        bool operator==(const State&) const = default;
    };

    [[nodiscard]] State state() const;
    [[nodiscard]] bool isCompleted() const;
    void takeInput(bool wasCompleted, bool mayComplete);
    void complete();
    void takeBackCompletion(const QString& typed);
    void replaceBy(const QString& replacement);

    const QStringList& mItems;
    QString mTyped;
    QString mCompleted;
    /// The text and selection that undoing the completion restores.
    State mBase;
};
