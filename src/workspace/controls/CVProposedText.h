#pragma once

#include <QObject>
#include <QString>

class QLineEdit;

/// Proposes a text in a field in which nothing stands, as a completion: the text is selected, so that typing replaces
/// it, Backspace removes it and Tab leaves it. A proposal is taken back or replaced by the next one until the user has
/// been in the field; from then on the text is the user's and stays.
class CVProposedText final : public QObject {
    Q_OBJECT

public:
    /// `focused` is the widget that has the focus while the user is in the field: the field itself or its box, which
    /// owns this object.
    CVProposedText(QLineEdit& field, QWidget& focused);

    /// Shows `text` where the field is empty or shows a proposal. An empty `text` takes the proposal back.
    void propose(const QString& text);
    /// What stands in the field is no proposal any more.
    void settle() { mProposed.clear(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit& mField;
    /// The text that was proposed last; empty once it is the user's.
    QString mProposed;
};
