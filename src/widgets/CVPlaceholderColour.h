#pragma once

#include <QObject>

class QApplication;

/// Gives the placeholders of all fields the quiet colour of the palette in use, also after the palette has changed.
/// Some desktops set the colour of texts but leave that of placeholders black.
class CVPlaceholderColour final : public QObject {
    Q_OBJECT

public:
    /// `application` outlives this object.
    explicit CVPlaceholderColour(QApplication& application);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QApplication& mApplication;
};
