#pragma once

#include <QLineEdit>
#include <QStringList>

/// The first of `items`, in their order, that begins with `typed` in whatever case; `typed` itself when none does.
[[nodiscard]] QString CVCompletedString(const QStringList& items, const QString& typed);

/// A text that is completed while it is typed. The letters as they were typed are kept while a completion stands, so
/// that going on with another text, or refusing, brings them back. What was typed and what was completed are one edit:
/// undo takes both away.
class CVCompletingLineEdit final : public QLineEdit {
    Q_OBJECT

public:
    /// `items` outlives the field.
    CVCompletingLineEdit(const QStringList& items, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    /// A text with its selection, or with its cursor where nothing is selected.
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
    /// What the completion was put into the place of, together with what was typed.
    State mBase;
};
