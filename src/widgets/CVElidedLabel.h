#pragma once

#include <QLabel>

/// A label of one line that takes less room than its text where the window is narrow: the text is then elided, and the
/// tooltip shows all of it.
class CVElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit CVElidedLabel(QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString elided() const;
};
