#include "importing/panel/CVStatementPane.h"

#include "importing/panel/CVStatementRowModel.h"
#include "importing/statements/CVStatementText.h"
#include "widgets/CVWrappingLayout.h"
#include "widgets/fields/CVCellAlignment.h"
#include "widgets/fields/CVWheelSafeComboBox.h"
#include "widgets/tables/CVCellDelegate.h"
#include "widgets/tables/CVTableView.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>
#include <array>
#include <initializer_list>

namespace {

constexpr int kLastHeaderLine = 999;
constexpr int kFirstYear = 1970;
constexpr int kLastYear = 2199;
/// Of the statement.
constexpr int kLeastRowsShown = 3;
constexpr int kMostRowsShown = 5;

constexpr std::array kRoles{CVColumnRole::Ignored,  CVColumnRole::Day,      CVColumnRole::Amount,
                            CVColumnRole::MoneyIn,  CVColumnRole::MoneyOut, CVColumnRole::Marker,
                            CVColumnRole::Fee,      CVColumnRole::Payee,    CVColumnRole::Payer,
                            CVColumnRole::Purpose,  CVColumnRole::Category, CVColumnRole::Balance,
                            CVColumnRole::Currency, CVColumnRole::BankID,   CVColumnRole::OtherDay};

/// Shows the item with that value; none when the statement does not settle it.
void choose(QComboBox& box, const QVariant& value) {
    const QSignalBlocker blocker(box);
    box.setCurrentIndex(value.isValid() ? box.findData(value) : -1);
}

} // namespace

CVStatementPane::CVStatementPane(QWidget* parent)
    : QWidget(parent)
    , mModel(new CVStatementRowModel(this))
    , mTable(new CVTableView(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const forms = new CVWrappingLayout;
    mSeparator = addPopUp(*forms, tr("&Separator:"), "mSeparatorBox");
    mEncoding = addPopUp(*forms, tr("&Encoding:"), "mEncodingBox");
    mHeaderLine = addNumber(*forms, tr("Hea&der in line:"), "mHeaderLineBox");
    mHeaderLine->setRange(0, kLastHeaderLine);
    mHeaderLine->setSpecialValueText(tr("none"));
    mDayOrder = addPopUp(*forms, tr("Order of da&ys:"), "mDayOrderBox");
    mYear = addNumber(*forms, tr("Y&ear of the first day:"), "mYearBox");
    mYear->setRange(kFirstYear, kLastYear);
    mYear->setSpecialValueText(tr("in the statement"));
    mDecimalMark = addPopUp(*forms, tr("Decimal mar&k:"), "mDecimalMarkBox");
    mSign = addPopUp(*forms, tr("Amounts without a si&gn:"), "mSignBox");
    layout->addLayout(forms);
    mTable->setObjectName(QStringLiteral("mStatementTable"));
    mTable->setAccessibleName(tr("First Rows of the Statement"));
    mTable->setModel(mModel);
    mTable->setItemDelegate(new CVCellDelegate(mTable));
    mTable->setSelectionMode(QAbstractItemView::SingleSelection);
    mTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mTable->horizontalHeader()->setDefaultAlignment(kCVTextAlignment);
    mTable->horizontalHeader()->setTextElideMode(Qt::ElideRight);
    layout->addWidget(mTable, 1);
    // Its controls come before the rows, as they stand.
    setTabOrder(mSign, mTable);
    mSeparator->addItem(tr("Comma"), QChar(u','));
    mSeparator->addItem(tr("Semicolon"), QChar(u';'));
    mSeparator->addItem(tr("Tab"), QChar(u'\t'));
    mSeparator->addItem(tr("Bar"), QChar(u'|'));
    for (const QByteArray& encoding : CVEncodingsOfStatements())
        mEncoding->addItem(QString::fromLatin1(encoding), encoding);
    mDayOrder->addItem(tr("Day, month, year"), static_cast<int>(CVDayOrder::DayMonthYear));
    mDayOrder->addItem(tr("Month, day, year"), static_cast<int>(CVDayOrder::MonthDayYear));
    mDayOrder->addItem(tr("Year, month, day"), static_cast<int>(CVDayOrder::YearMonthDay));
    mDecimalMark->addItem(tr("Point"), QChar(u'.'));
    mDecimalMark->addItem(tr("Comma"), QChar(u','));
    mSign->addItem(tr("Money in"), false);
    mSign->addItem(tr("Money out"), true);
    connectPopUps();
}

QComboBox* CVStatementPane::addPopUp(CVWrappingLayout& line, const QString& label, const char* name) {
    auto* const part = new QHBoxLayout;
    auto* const text = new QLabel(label, this);
    auto* const box = new CVWheelSafeComboBox(this);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(QString(label).remove('&').remove(':'));
    box->setPlaceholderText(tr("not settled"));
    text->setBuddy(box);
    part->addWidget(text);
    part->addWidget(box);
    line.addPart(part);
    return box;
}

QSpinBox* CVStatementPane::addNumber(CVWrappingLayout& line, const QString& label, const char* name) {
    auto* const part = new QHBoxLayout;
    auto* const text = new QLabel(label, this);
    auto* const box = new QSpinBox(this);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(QString(label).remove('&').remove(':'));
    box->setKeyboardTracking(false);
    box->setFocusPolicy(Qt::StrongFocus);
    text->setBuddy(box);
    part->addWidget(text);
    part->addWidget(box);
    line.addPart(part);
    return box;
}

void CVStatementPane::connectPopUps() {
    connect(mSeparator, &QComboBox::activated, this, [this] {
        mKnown.separator = mSeparator->currentData().toChar().toLatin1();
        tell(true);
    });
    connect(mEncoding, &QComboBox::activated, this, [this] {
        mKnown.encoding = mEncoding->currentData().toByteArray();
        tell(true);
    });
    connect(mHeaderLine, &QSpinBox::valueChanged, this, [this](int line) {
        mKnown.headerLine = line;
        tell(true);
    });
    connect(mDayOrder, &QComboBox::activated, this, [this] {
        mKnown.dayOrder = static_cast<CVDayOrder>(mDayOrder->currentData().toInt());
        tell(false);
    });
    connect(mDecimalMark, &QComboBox::activated, this, [this] {
        mKnown.decimalMark = mDecimalMark->currentData().toChar();
        tell(false);
    });
    connect(mSign, &QComboBox::activated, this, [this] {
        mKnown.positiveIsOut = mSign->currentData().toBool();
        tell(false);
    });
    connect(mYear, &QSpinBox::valueChanged, this, [this](int year) {
        mKnown.year = year;
        tell(false);
    });
}

void CVStatementPane::tell(bool areOtherColumns) {
    if (areOtherColumns)
        mKnown.columns.reset();
    emit changed(mKnown);
}

void CVStatementPane::show(std::shared_ptr<const CVStatement> statement, const CVStatementMapping& known) {
    mStatement = std::move(statement);
    mKnown = known;
    showForms();
    // The pop-up that was chosen from must not go while it tells so.
    QMetaObject::invokeMethod(this, &CVStatementPane::showMeanings, Qt::QueuedConnection);
}

void CVStatementPane::showForms() {
    const CVStatementMapping& mapping = mStatement->mapping;
    const auto valueOf = [](const auto& member) { return member ? QVariant::fromValue(*member) : QVariant(); };
    choose(*mSeparator, mapping.separator ? QVariant(QLatin1Char(*mapping.separator)) : QVariant());
    if (mapping.encoding && mEncoding->findData(*mapping.encoding) < 0)
        mEncoding->addItem(QString::fromLatin1(*mapping.encoding), *mapping.encoding);
    choose(*mEncoding, valueOf(mapping.encoding));
    choose(*mDayOrder, mapping.dayOrder ? QVariant(static_cast<int>(*mapping.dayOrder)) : QVariant());
    choose(*mDecimalMark, valueOf(mapping.decimalMark));
    choose(*mSign, valueOf(mapping.positiveIsOut));
    const QSignalBlocker headerBlocker(mHeaderLine);
    mHeaderLine->setValue(mapping.headerLine.value_or(0));
    // Most statements write a year to every day.
    const QSignalBlocker yearBlocker(mYear);
    mYear->setValue(mapping.year.value_or(kFirstYear));
    mYear->setEnabled(mapping.year.has_value());
    offerWhatMatters();
}

/// Most kinds say themselves what is what. Where nothing can be read, a choice of columns may be what was wrong.
void CVStatementPane::offerWhatMatters() {
    const CVStatementMapping& mapping = mStatement->mapping;
    const bool hasColumns = mapping.columns || mapping.separator || !mStatement->problem.isEmpty();
    for (QWidget* const ofColumns : std::initializer_list<QWidget*>{mSeparator, mHeaderLine, mSign})
        ofColumns->setEnabled(hasColumns);
    mDayOrder->setEnabled(hasColumns || mapping.dayOrder);
    mDecimalMark->setEnabled(hasColumns || mapping.decimalMark);
    mTable->setVisible(hasColumns);
}

void CVStatementPane::showMeanings() {
    const int focused = mTable->currentIndex().column();
    const bool hadFocus = mTable->isAncestorOf(focusWidget());
    mModel->setStatement(mStatement);
    for (int column = 0; column < mModel->columnCount(); ++column) {
        auto* const box = new CVWheelSafeComboBox(mTable);
        box->setAccessibleName(tr("Meaning of “%1”").arg(mModel->headerData(column, Qt::Horizontal).toString()));
        for (const CVColumnRole role : kRoles)
            box->addItem(CVStatementRowModel::meaning(role), static_cast<int>(role));
        choose(*box, static_cast<int>((*mStatement->mapping.columns)[static_cast<std::size_t>(column)]));
        connect(box, &QComboBox::activated, this, [this, box, column] {
            chooseMeaning(static_cast<std::size_t>(column), static_cast<CVColumnRole>(box->currentData().toInt()));
        });
        const QModelIndex place = mModel->index(CVStatementRowModel::kMeaningRow, column);
        mTable->setIndexWidget(place, box);
        mTable->setColumnWidth(column, std::max(box->sizeHint().width(), mTable->columnWidth(column)));
        if (hadFocus && column == focused)
            box->setFocus();
    }
    fitHeight();
}

/// The pop-ups take more room than a row.
void CVStatementPane::fitHeight() {
    if (mModel->columnCount() == 0)
        return;
    const int popUp = mTable->indexWidget(mModel->index(CVStatementRowModel::kMeaningRow, 0))->sizeHint().height();
    mTable->setRowHeight(CVStatementRowModel::kMeaningRow, popUp);
    const int above = mTable->horizontalHeader()->sizeHint().height() + popUp + 2 * mTable->frameWidth();
    mTable->setMinimumHeight(above + kLeastRowsShown * mTable->rowHeight());
    mTable->setMaximumHeight(above + kMostRowsShown * mTable->rowHeight() +
                             mTable->horizontalScrollBar()->sizeHint().height());
}

/// What the user has not chosen is guessed anew, so that no two columns say the same.
void CVStatementPane::chooseMeaning(std::size_t column, CVColumnRole role) {
    if (!mKnown.columns)
        mKnown.columns.emplace(mStatement->mapping.columns->size(), CVColumnRole::Guessed);
    mTable->setCurrentIndex(mModel->index(CVStatementRowModel::kMeaningRow, static_cast<int>(column)));
    mKnown.columns->resize(mStatement->mapping.columns->size(), CVColumnRole::Guessed);
    (*mKnown.columns)[column] = role;
    tell(false);
}
