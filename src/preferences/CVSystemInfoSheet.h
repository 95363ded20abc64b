#pragma once

#include <QDialog>
#include <QMap>

class QTextBrowser;
class QTextDocument;

/// The sheet that shows what a check for a newer version sends. The sheet is deleted when it is closed.
class CVSystemInfoSheet final : public QDialog {
    Q_OBJECT

public:
    /// Shows the sheet on the window of `owner` and returns at once. False when `resource` holds no readable text.
    [[nodiscard]] static bool show(const QString& resource, QWidget& owner);

private:
    explicit CVSystemInfoSheet(QWidget& owner);

    QTextBrowser* mText;
};

/// Fills in the values at their keys, such as "<cpu>" for the key "cpu"; only the first place of each key is filled. A
/// value without a place is logged, because the check would send it without showing it to the user.
void CVFillSystemInfo(QTextDocument& text, const QMap<QString, QString>& values);
