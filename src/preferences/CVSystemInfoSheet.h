#pragma once

#include <QDialog>
#include <QMap>

class QTextBrowser;
class QTextDocument;

/// The sheet that shows what a check for a newer version sends. It goes when it is closed.
class CVSystemInfoSheet final : public QDialog {
    Q_OBJECT

public:
    /// Shows the sheet on the window of `owner` and returns at once. False when there is no text to be read at
    /// `resource`.
    [[nodiscard]] static bool show(const QString& resource, QWidget& owner);

private:
    explicit CVSystemInfoSheet(QWidget& owner);

    QTextBrowser* mText;
};

/// Puts the values in the places that a text has for them, such as "<cpu>" for the key "cpu": the first of each. A
/// value that has no place is logged, for it would be sent behind the user's back.
void CVFillSystemInfo(QTextDocument& text, const QMap<QString, QString>& values);
