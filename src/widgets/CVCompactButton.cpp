#include "widgets/CVCompactButton.h"

CVCompactButton::CVCompactButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize CVCompactButton::minimumSizeHint() const {
    const QSize usual = QPushButton::minimumSizeHint();
    // Half the button's height on each side of the text has room for the frame and the focus mark.
    const int needed = fontMetrics().horizontalAdvance(QString(text()).remove(u'&')) + usual.height();
    return {qMin(needed, usual.width()), usual.height()};
}
