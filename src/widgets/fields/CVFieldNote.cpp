#include "widgets/fields/CVFieldNote.h"

#include "widgets/CVPositionOfPopup.h"

#include <QToolTip>

namespace {

constexpr int kMargin = 3;

} // namespace

CVFieldNote::CVFieldNote(QWidget& field) : QLabel(&field, Qt::ToolTip), mField(field) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    setAutoFillBackground(true);
    setFrameStyle(QFrame::Box);
    setMargin(kMargin);
}

void CVFieldNote::say(const QString& text) {
    setText(text);
    if (!text.isEmpty()) {
        setPalette(QToolTip::palette());
        adjustSize();
        move(CVPositionOfPopup(mField, size()));
    }
    setVisible(!text.isEmpty());
}
