#include "widgets/fields/CVFigureField.h"

#include "widgets/fields/CVCellAlignment.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace {

/// What an elided figure keeps at the least, in widths of a zero.
constexpr int kShortestFigure = 6;
/// The line edit keeps 2 pixels free on either side of its text, and one for the cursor.
constexpr int kTextMargin = 3;

} // namespace

CVFigureField::CVFigureField(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    setFrame(false);
    setAlignment(kCVNumberAlignment);
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    QPalette transparent;
    transparent.setBrush(QPalette::Base, Qt::NoBrush);
    setPalette(transparent);
    connect(this, &QLineEdit::textChanged, this, [this] {
        widen();
        explain();
    });
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
    const int shortest = fontMetrics().horizontalAdvance('0') * kShortestFigure;
    return {qMin(mWidth, shortest), sizeHint().height()};
}

void CVFigureField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    mWidth = 0;
    widen();
    explain();
}

void CVFigureField::paintEvent(QPaintEvent* event) {
    // With the focus the text scrolls, so that all of it can be selected.
    if (!isElided() || hasFocus())
        return QLineEdit::paintEvent(event);
    const QRect inside = rect().adjusted(kTextMargin, 0, -kTextMargin, 0);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(inside, QStyle::visualAlignment(layoutDirection(), alignment()) | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, inside.width()));
}

void CVFigureField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    explain();
}

int CVFigureField::neededWidth() const {
    const QMargins margins = textMargins();
    return fontMetrics().horizontalAdvance(text()) + margins.left() + margins.right() + 2 * kTextMargin;
}

bool CVFigureField::isElided() const {
    return width() < neededWidth();
}

/// Leaves a tooltip alone that others have set.
void CVFigureField::explain() {
    if (isElided() || mIsExplained)
        setToolTip(isElided() ? text() : QString());
    mIsExplained = isElided();
}

void CVFigureField::widen() {
    const int needed = neededWidth();
    if (needed <= mWidth)
        return;
    mWidth = needed;
    updateGeometry();
}
