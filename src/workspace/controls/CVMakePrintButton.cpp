#include "workspace/controls/CVMakePrintButton.h"

#include "widgets/CVCompactButton.h"

#include <QCoreApplication>
#include <QPushButton>

namespace {

struct PrintButtonText {
    Q_DECLARE_TR_FUNCTIONS(CVMakePrintButton)
};

} // namespace

QPushButton* CVMakePrintButton(const QString& toolTip, QWidget& tab) {
    auto* const button = new CVCompactButton(PrintButtonText::tr("Print…"), &tab);
    button->setObjectName(QStringLiteral("mPrintButton"));
    button->setAccessibleName(PrintButtonText::tr("Print"));
    button->setToolTip(toolTip);
    return button;
}
