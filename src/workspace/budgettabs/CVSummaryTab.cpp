#include "workspace/budgettabs/CVSummaryTab.h"

#include "contents/CVGridContents.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVWrappingLayout.h"
#include "widgets/fields/CVCopyableField.h"
#include "widgets/fields/CVWheelSafeComboBox.h"
#include "workspace/budgettabs/CVGridTables.h"
#include "workspace/controls/CVMakePrintButton.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace {

constexpr std::array<const char*, CVDisplayPeriods::kTypes> kPeriods{
    QT_TRANSLATE_NOOP("CVSummaryTab", "Daily"), QT_TRANSLATE_NOOP("CVSummaryTab", "Weekly"),
    QT_TRANSLATE_NOOP("CVSummaryTab", "Bi-Weekly"), QT_TRANSLATE_NOOP("CVSummaryTab", "Monthly")};

} // namespace

CVSummaryTab::CVSummaryTab(const CVGridContents& contents, QWidget* parent)
    : QWidget(parent)
    , mContents(contents)
    , mExpensePeriod(new CVWheelSafeComboBox(this)) {
    auto* const label = new QLabel(tr("Per&iod"), this);
    label->setBuddy(mExpensePeriod);
    mExpensePeriod->setObjectName(QStringLiteral("mExpensePeriod"));
    mExpensePeriod->setAccessibleName(tr("Period"));
    for (const char* const period : kPeriods)
        mExpensePeriod->addItem(tr(period));
    connect(mExpensePeriod, &QComboBox::activated, this, &CVSummaryTab::periodTypePicked);

    auto* const period = new QHBoxLayout;
    period->addWidget(label);
    period->addWidget(mExpensePeriod);
    period->addSpacing(fontMetrics().height());
    mExpenseDisplayRangeField = new CVCopyableField(this);
    mExpenseDisplayRangeField->setObjectName(QStringLiteral("mExpenseDisplayRangeField"));
    mExpenseDisplayRangeField->setAccessibleName(tr("Display Range"));
    // The field names the range of the columns and is never elided.
    mExpenseDisplayRangeField->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    period->addWidget(mExpenseDisplayRangeField);
    auto* const buttons = new QHBoxLayout;
    connect(addButton(*buttons, "mPreviousButton", tr("Previous"), tr("Show earlier periods")), &QPushButton::clicked,
            this, &CVSummaryTab::previousRequested);
    connect(addButton(*buttons, "mTodayButton", tr("Today"), tr("Show the periods around today")),
            &QPushButton::clicked, this, &CVSummaryTab::todayRequested);
    connect(addButton(*buttons, "mNextButton", tr("Next"), tr("Show later periods")), &QPushButton::clicked, this,
            &CVSummaryTab::nextRequested);

    auto* const print = CVMakePrintButton(tr("Print the summary"), *this);
    connect(print, &QPushButton::clicked, this, &CVSummaryTab::printRequested);
    buttons->addWidget(print);
    auto* const controls = new CVWrappingLayout;
    controls->addPart(period);
    controls->addPart(buttons);

    mTables = new CVGridTables(contents, this);
    connect(mTables, &CVGridTables::cellActivated, this, &CVSummaryTab::cellActivated);

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(mTables, 1);
}

void CVSummaryTab::reload() {
    mExpenseDisplayRangeField->setText(mContents.periods().displayRangeText());
    mTables->reload();
}

void CVSummaryTab::setPeriodType(int periodType) {
    mExpensePeriod->setCurrentIndex(periodType);
}

QPushButton* CVSummaryTab::addButton(QHBoxLayout& layout, const char* objectName, const QString& text,
                                     const QString& toolTip) {
    auto* const button = new CVCompactButton(text, this);
    button->setObjectName(QLatin1String(objectName));
    button->setAccessibleName(text);
    button->setToolTip(toolTip);
    layout.addWidget(button);
    return button;
}
