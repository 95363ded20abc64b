#include "shared/widgets/CVCellDelegate.h"

#include "shared/widgets/CVAnyLength.h"
#include "shared/widgets/CVCellStyle.h"
#include "shared/widgets/CVFormattedField.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace {

/// More fonts than that are those of before a change of the fonts.
constexpr std::size_t kMostFonts = 4;

QPalette::ColorGroup colorGroup(const QStyleOptionViewItem& option) {
    if (!option.state.testFlag(QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

QColor textColor(const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (option.state.testFlag(QStyle::State_Selected))
        return option.palette.color(colorGroup(option), QPalette::HighlightedText);
    const QVariant foreground = index.data(Qt::ForegroundRole);
    return foreground.isValid() ? foreground.value<QBrush>().color()
                                : option.palette.color(colorGroup(option), QPalette::Text);
}

/// Does `act` with the text of a cell.
template <typename Act>
void withText(const QModelIndex& index, Act act) {
    const QVariant view = index.data(kCVTextViewRole);
    if (view.isValid())
        act(view.value<QStringView>());
    else
        act(QStringView(index.data(Qt::DisplayRole).toString()));
}

void paintFocus(QPainter& painter, const QStyleOptionViewItem& option) {
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    const auto role = option.state.testFlag(QStyle::State_Selected) ? QPalette::Highlight : QPalette::Window;
    focus.backgroundColor = option.palette.color(colorGroup(option), role);
    CVStyleOfCell(option).drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, option.widget);
}

} // namespace

void CVCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    CVStyleOfCell(option).drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    paintText(*painter, option, index);
    if (option.state.testFlag(QStyle::State_HasFocus))
        paintFocus(*painter, option);
}

QWidget* CVCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* const field = qobject_cast<QLineEdit*>(editor))
        CVTakeAnyLength(*field);
    return editor;
}

void CVCellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const {
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    if (!qobject_cast<CVFormattedField*>(editor))
        return;
    QRect place = editor->geometry();
    const int missing = std::max(0, editor->sizeHint().width() - place.width());
    if (option.direction == Qt::LeftToRight)
        place.setRight(place.right() + missing);
    else
        place.setLeft(place.left() - missing);
    // Where the table ends there it grows to the other side.
    const QRect table = editor->parentWidget()->rect();
    place.translate(std::min(0, table.right() - place.right()), 0);
    place.translate(std::max(0, table.left() - place.left()), 0);
    editor->setGeometry(place);
}

QSize CVCellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    double width = 0;
    withText(index, [&](QStringView text) { width = glyphs(option, index).width(text); });
    return {qCeil(width) + 2 * CVTextMarginOfCell(option), option.fontMetrics.height()};
}

bool CVCellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                               const QModelIndex& index) {
    const bool isWanted = event->type() == QEvent::ToolTip && index.isValid();
    if (!isWanted || index.data(Qt::ToolTipRole).isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
    // A name with markup in it shows as it is.
    const QString text = Qt::convertFromPlainText(index.data().toString());
    QToolTip::showText(event->globalPos(), isCut ? text : QString(), view);
    return true;
}

void CVCellDelegate::paintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    // Making a pen costs more than painting most texts.
    if (const QColor color = textColor(option, index); painter.pen().color() != color)
        painter.setPen(color);
    const int margin = CVTextMarginOfCell(option);
    const QRect place = option.rect.adjusted(margin, 0, -margin, 0);
    const auto alignment = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
    withText(index, [&](QStringView text) { glyphs(option, index).paint(painter, place, alignment, text); });
}

CVTextGlyphs& CVCellDelegate::glyphs(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QVariant own = index.data(Qt::FontRole);
    const QFont font = own.isValid() ? own.value<QFont>().resolve(option.font) : option.font;
    for (CVTextGlyphs& glyphs : mGlyphs) {
        if (glyphs.isFor(font, option.direction))
            return glyphs;
    }
    if (mGlyphs.size() >= kMostFonts)
        mGlyphs.clear();
    return mGlyphs.emplace_back(font, option.direction);
}
