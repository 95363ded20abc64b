#include "widgets/CVCompactButton.h"

#include <QBoxLayout>

CVCompactButton::CVCompactButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QPushButton& CVCompactButton::addTo(QBoxLayout& row, const QString& text, const char* name, QWidget& window) {
    auto* const button = new CVCompactButton(text, &window);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(QString(text).remove(u'&'));
    button->setAutoDefault(false);
    row.addWidget(button);
    return *button;
}

QSize CVCompactButton::minimumSizeHint() const {
    const QSize usual = QPushButton::minimumSizeHint();
    // Half the button's height on each side of the text has room for the frame and the focus mark.
    const int needed = fontMetrics().horizontalAdvance(QString(text()).remove(u'&')) + usual.height();
    return {qMin(needed, usual.width()), usual.height()};
}
