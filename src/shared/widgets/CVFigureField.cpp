#include "shared/widgets/CVFigureField.h"

#include "shared/widgets/CVCellAlignment.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>

CVFigureField::CVFigureField(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    setFrame(false);
    setAlignment(kCVNumberAlignment);
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QPalette transparent;
    transparent.setBrush(QPalette::Base, Qt::NoBrush);
    setPalette(transparent);
    connect(this, &QLineEdit::textChanged, this, &CVFigureField::widen);
}

CVFigureField* CVFigureField::addTo(QBoxLayout& layout, const char* objectName, const QString& label,
                                    const QString& accessibleName, QWidget* parent) {
    auto* const figure = new CVFigureField(parent);
    figure->setObjectName(QLatin1String(objectName));
    figure->setAccessibleName(accessibleName);
    layout.addWidget(new QLabel(label, parent));
    layout.addWidget(figure);
    return figure;
}

QSize CVFigureField::sizeHint() const {
    return {mWidth, QLineEdit::sizeHint().height()};
}

QSize CVFigureField::minimumSizeHint() const {
    return sizeHint();
}

void CVFigureField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    mWidth = 0;
    widen();
}

int CVFigureField::neededWidth() const {
    const QMargins margins = textMargins();
    // The line edit keeps 2 pixels free on either side of its text.
    return fontMetrics().horizontalAdvance(text()) + margins.left() + margins.right() + 6;
}

void CVFigureField::widen() {
    const int needed = neededWidth();
    if (needed <= mWidth)
        return;
    mWidth = needed;
    updateGeometry();
}
