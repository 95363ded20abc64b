#include "widgets/fields/CVCopyableField.h"

#include "widgets/fields/CVCellAlignment.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace {

/// The minimum width of an elided text, in widths of the digit zero.
constexpr int kShortestText = 6;
/// QLineEdit keeps 2 pixels free on each side of its text, and 1 pixel for the cursor.
constexpr int kTextMargin = 3;

} // namespace

CVCopyableField::CVCopyableField(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    setFrame(false);
    CVAlignNumber(*this);
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

CVCopyableField* CVCopyableField::addTo(QBoxLayout& layout, const char* objectName, const QString& label,
                                        const QString& accessibleName, QWidget* parent) {
    auto* const field = new CVCopyableField(parent);
    field->setObjectName(QLatin1String(objectName));
    field->setAccessibleName(accessibleName);
    layout.addWidget(new QLabel(label, parent));
    layout.addWidget(field);
    return field;
}

QSize CVCopyableField::sizeHint() const {
    return {mWidth, QLineEdit::sizeHint().height()};
}

QSize CVCopyableField::minimumSizeHint() const {
    const int shortest = fontMetrics().horizontalAdvance('0') * kShortestText;
    return {qMin(mWidth, shortest), sizeHint().height()};
}

void CVCopyableField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        CVAlignNumber(*this);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    mWidth = 0;
    widen();
    explain();
}

void CVCopyableField::paintEvent(QPaintEvent* event) {
    // A field with the focus scrolls its text, so that all of it can be selected.
    if (!isElided() || hasFocus())
        return QLineEdit::paintEvent(event);
    const QRect inside = rect().adjusted(kTextMargin, 0, -kTextMargin, 0);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(inside, QStyle::visualAlignment(layoutDirection(), alignment()) | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, inside.width()));
}

void CVCopyableField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    explain();
}

int CVCopyableField::neededWidth() const {
    const QMargins margins = textMargins();
    return fontMetrics().horizontalAdvance(text()) + margins.left() + margins.right() + 2 * kTextMargin;
}

bool CVCopyableField::isElided() const {
    return width() < neededWidth();
}

/// Shows the full text as the tooltip of an elided field. A tooltip that other code has set stays.
void CVCopyableField::explain() {
    if (isElided() || mIsExplained)
        setToolTip(isElided() ? text() : QString());
    mIsExplained = isElided();
}

void CVCopyableField::widen() {
    const int needed = neededWidth();
    if (needed <= mWidth)
        return;
    mWidth = needed;
    updateGeometry();
}
