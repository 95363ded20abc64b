#include "widgets/CVElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace {

/// The minimum width of an elided text, in average letters.
constexpr int kShortestLabelInLetters = 12;

} // namespace

CVElidedLabel::CVElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QSize CVElidedLabel::minimumSizeHint() const {
    const QSize whole = QLabel::minimumSizeHint();
    return {qMin(whole.width(), kShortestLabelInLetters * fontMetrics().averageCharWidth()), whole.height()};
}

bool CVElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), elided() == text() ? QString() : text(), this);
    return true;
}

void CVElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), QStyle::visualAlignment(layoutDirection(), alignment()), palette(),
                          isEnabled(), elided(), foregroundRole());
}

QString CVElidedLabel::elided() const {
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}
