#include "workspace/controls/CVSearchField.h"

#include "contents/CVTransactionSearch.h"
#include "widgets/CVGlyph.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>

namespace {

/// The usual and the smallest width, in characters.
constexpr int kUsualWidth = 26;
constexpr int kSmallestWidth = 18;

} // namespace

CVSearchField::CVSearchField(QWidget* parent) : QLineEdit(parent), mKinds(new QMenu(tr("Search Menu"), this)) {
    setClearButtonEnabled(true);
    auto* const group = new QActionGroup(mKinds);
    for (int kind = 0; kind < kCVSearchKinds; ++kind) {
        QAction* const item = mKinds->addAction(CVTitleOfSearchKind(kind));
        item->setCheckable(true);
        item->setChecked(kind == mSearchType);
        group->addAction(item);
        connect(item, &QAction::triggered, this, [this, kind] {
            setSearchType(kind);
            emit searchTypePicked(kind);
        });
    }
    QAction* const glass = addAction(CVGlyph::icon(CVGlyph::Shape::Search), LeadingPosition);
    glass->setText(tr("Search Menu"));
    glass->setToolTip(tr("Choose what is searched (Alt+Down)"));
    connect(glass, &QAction::triggered, this, &CVSearchField::showKinds);
    connect(this, &QLineEdit::textChanged, this, &CVSearchField::searched);
    setSearchType(mSearchType);
}

QSize CVSearchField::sizeHint() const {
    return {fontMetrics().averageCharWidth() * kUsualWidth, QLineEdit::sizeHint().height()};
}

QSize CVSearchField::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * kSmallestWidth, QLineEdit::minimumSizeHint().height()};
}

void CVSearchField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier)
        showKinds();
    else if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else
        QLineEdit::keyPressEvent(event);
}

void CVSearchField::setSearchType(int kind) {
    mSearchType = kind;
    setPlaceholderText(CVTitleOfSearchKind(kind));
}

void CVSearchField::showKinds() {
    mKinds->popup(mapToGlobal(rect().bottomLeft()));
}
