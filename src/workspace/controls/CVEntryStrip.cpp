#include "workspace/controls/CVEntryStrip.h"

#include "base/QBXMLText.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVIsReturnKey.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/CVWrappingLayout.h"
#include "widgets/fields/CVAllowAnyLength.h"
#include "widgets/fields/CVCompletingComboBox.h"
#include "widgets/fields/CVDateField.h"
#include "widgets/fields/CVMoneyField.h"
#include "workspace/controls/CVNewCategoryNote.h"
#include "workspace/controls/CVProposedText.h"
#include "workspace/controls/CVRecordingNote.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace {

enum Row { LabelRow, FieldRow };
/// The minimum width of the field “For”, in characters.
constexpr int kShortestFor = 7;
/// The stretch of the two halves of the strip.
constexpr int kFirstHalfStretch = 3;
constexpr int kSecondHalfStretch = 5;
/// The gap between a label and its field. In pixels.
constexpr int kLabelGap = 2;
/// The gap between two fields. In pixels.
constexpr int kFieldGap = 6;
/// The gap between the caption of the category and the note behind it. In pixels.
constexpr int kNoteGap = 4;
/// How long to wait before checking again whether a click has ended.
constexpr std::chrono::milliseconds kClickPatience(50);

} // namespace

CVEntryStrip::CVEntryStrip(QWidget* parent)
    : QWidget(parent)
    , mExpenseDate(new CVDateField(this))
    , mExpenseAmountField(new CVMoneyField(this))
    , mExpenseToFromComboBox(new CVCompletingComboBox(this))
    , mForField(new QLineEdit(this))
    , mExpenseCategoryComboBox(new CVCompletingComboBox(this))
    , mTaxCheckbox(new QCheckBox(tr("&Tax"), this))
    , mRecordButton(new CVCompactButton(tr("&Record"), this))
    , mNewCategoryNote(new CVNewCategoryNote(*mExpenseCategoryComboBox, this))
    , mRecordingNote(new CVRecordingNote(this))
    , mProposedFor(new CVProposedText(*mForField, *mForField))
    , mProposedCategory(new CVProposedText(*mExpenseCategoryComboBox->lineEdit(), *mExpenseCategoryComboBox)) {
    auto* const lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(kLabelGap);
    auto* const layout = new CVWrappingLayout;
    lines->addLayout(layout);
    lines->addWidget(mRecordingNote);
    auto* const firstHalf = new QGridLayout;
    auto* const secondHalf = new QGridLayout;
    for (QGridLayout* const half : {firstHalf, secondHalf}) {
        half->setHorizontalSpacing(kFieldGap);
        half->setVerticalSpacing(kLabelGap);
    }
    layout->setSpacing(kFieldGap);
    layout->addPart(firstHalf, kFirstHalfStretch);
    layout->addPart(secondHalf, kSecondHalfStretch);
    addField(*firstHalf, mExpenseDate, "mExpenseDate", tr("&Date"), tr("Date"), 0);
    addField(*firstHalf, mExpenseAmountField, "mExpenseAmountField", tr("&Amount"), tr("Amount"), 0);
    addField(*firstHalf, mExpenseToFromComboBox, "mExpenseToFromComboBox", tr("&Paid To/From"), tr("Paid To/From"), 3);
    addField(*secondHalf, mForField, "mForField", tr("F&or"), tr("For"), 3);
    QLabel* const category =
        addField(*secondHalf, mExpenseCategoryComboBox, "mExpenseCategoryComboBox", tr("&Category"), tr("Category"), 2);
    addField(*secondHalf, mTaxCheckbox, "mTaxCheckbox", QString(), tr("Tax"), 0);
    addField(*secondHalf, mRecordButton, "mRecordButton", QString(), tr("Record"), 0);
    addNewCategoryNote(*secondHalf, *category);
    CVAllowAnyLength(*mForField);
    adjustMetrics();
    mRecordButton->setToolTip(tr("Record this transaction (Return in any of the fields)"));
    // On some desktops Return toggles a check box; here Return records.
    mTaxCheckbox->installEventFilter(this);
    mRecordButton->installEventFilter(this);
    mExpenseToFromComboBox->installEventFilter(this);
    connect(mRecordButton, &QPushButton::clicked, this, &CVEntryStrip::recordRequested);
    connect(mExpenseDate, &CVDateField::leftUnreadable, this, &CVEntryStrip::dateLeftUnreadable);
    connect(mExpenseToFromComboBox, &QComboBox::editTextChanged, this, [this] {
        if (!mIsSettingFields)
            emit payeeEntered(mExpenseToFromComboBox->enteredText());
    });
    noteRecorded();
}

std::optional<CVEntryProblem> CVEntryStrip::endEditing() {
    mExpenseDate->endEditing();
    mExpenseAmountField->endEditing();
    mIsDateProblemPending = false;
    if (auto problem = dateProblem())
        return problem;
    if (!mExpenseAmountField->isReadable())
        return CVEntryProblem{CVEntryField::Amount, tr("Input Error"),
                              tr("“%1” in the field “Amount” is not an amount. %2")
                                  .arg(mExpenseAmountField->text(), mExpenseAmountField->expectation())};
    return std::nullopt;
}

CVEntry CVEntryStrip::entry() const {
    // The texts are taken as they will be recorded, so that a text which would be recorded as empty counts as empty.
    return {mExpenseDate->QBDateValue(),
            mExpenseAmountField->doubleValue(),
            mExpenseToFromComboBox->enteredText(),
            xml_storableLine(mForField->text()),
            mExpenseCategoryComboBox->enteredText(),
            mTaxCheckbox->isChecked()};
}

void CVEntryStrip::setEntry(const CVEntry& entry) {
    const QScopedValueRollback settingFields(mIsSettingFields, true);
    mExpenseDate->setQBDateValue(entry.date);
    mExpenseAmountField->setDoubleValue(entry.amount);
    mExpenseToFromComboBox->setEditText(entry.payTo);
    mForField->setText(entry.xfor);
    mExpenseCategoryComboBox->setEditText(entry.category);
    mTaxCheckbox->setChecked(entry.taxFlag);
    // The beginning of a long text is seen.
    for (QLineEdit* const field : {mExpenseToFromComboBox->lineEdit(), mForField, mExpenseCategoryComboBox->lineEdit()})
        field->home(false);
    mProposedFor->settle();
    mProposedCategory->settle();
    noteRecorded();
}

bool CVEntryStrip::hasUnrecordedEntry() {
    return endEditing() || entry() != mKnownEntry;
}

/// A proposal that stays in a field still looks like one, so that another payee may replace it.
void CVEntryStrip::noteRecorded() {
    mKnownEntry = entry();
}

void CVEntryStrip::propose(const QString& xfor, const QString& category) {
    mProposedFor->propose(xfor);
    mProposedCategory->propose(category);
}

void CVEntryStrip::resetAmount() {
    mExpenseAmountField->setDoubleValue(0);
}

void CVEntryStrip::clearFields() {
    const QScopedValueRollback settingFields(mIsSettingFields, true);
    mExpenseAmountField->clearValue();
    mExpenseToFromComboBox->clearEditText();
    mForField->clear();
    mExpenseCategoryComboBox->clearEditText();
    mTaxCheckbox->setChecked(false);
}

void CVEntryStrip::sayRecordingInto(const std::optional<QString>& set) {
    mRecordingNote->setSet(set);
    mRecordButton->setAccessibleDescription(mRecordingNote->text());
}

void CVEntryStrip::setPaidToItems(const QStringList& items) {
    mExpenseToFromComboBox->setItems(items);
}

void CVEntryStrip::setCategoryItems(const QStringList& items) {
    mExpenseCategoryComboBox->setItems(items);
    mNewCategoryNote->compare();
}

void CVEntryStrip::focusField(CVEntryField field) {
    QWidget* const widget = widgetOf(field);
    widget->setFocus(Qt::OtherFocusReason);
    if (auto* const text = qobject_cast<QLineEdit*>(widget))
        text->selectAll();
}

void CVEntryStrip::localeChanged() {
    mExpenseDate->localeChanged();
    mExpenseAmountField->localeChanged();
}

void CVEntryStrip::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        adjustMetrics();
}

void CVEntryStrip::keyPressEvent(QKeyEvent* event) {
    // The fields pass Return on after they have read their text.
    if (CVIsReturnKey(event->key()))
        emit recordRequested();
    else
        QWidget::keyPressEvent(event);
}

bool CVEntryStrip::eventFilter(QObject* watched, QEvent* event) {
    // The second click of a double click records nothing: the user means one transaction, and the second click would
    // record the fields as the first one left them. The first click has given the focus to the button.
    if (watched == mRecordButton && event->type() == QEvent::MouseButtonDblClick) {
        focusField(CVEntryField::Amount);
        return true;
    }
    if (watched == mExpenseToFromComboBox && event->type() == QEvent::FocusIn)
        emit payeeFocused();
    if (watched == mRecordButton || watched == mExpenseToFromComboBox)
        return false;
    if (event->type() != QEvent::KeyPress || !CVIsReturnKey(static_cast<QKeyEvent*>(event)->key()))
        return QWidget::eventFilter(watched, event);
    emit recordRequested();
    return true;
}

/// Returns the caption; null for an empty label.
QLabel* CVEntryStrip::addField(QGridLayout& layout, QWidget* field, const char* objectName, const QString& label,
                               const QString& accessibleName, int stretch) {
    const int column = layout.columnCount() - (layout.count() == 0 ? 1 : 0);
    field->setObjectName(QLatin1String(objectName));
    CVSetAccessibleName(*field, accessibleName);
    layout.addWidget(field, FieldRow, column);
    layout.setColumnStretch(column, stretch);
    if (label.isEmpty())
        return nullptr;
    auto* const caption = new QLabel(label, this);
    caption->setBuddy(field);
    layout.addWidget(caption, LabelRow, column);
    return caption;
}

/// Puts the note behind the caption of the category. The note may reach over the fields behind, which have no captions.
void CVEntryStrip::addNewCategoryNote(QGridLayout& layout, QLabel& caption) {
    auto* const line = new QHBoxLayout;
    line->setSpacing(kNoteGap);
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    layout.getItemPosition(layout.indexOf(&caption), &row, &column, &rows, &columns);
    layout.removeWidget(&caption);
    line->addWidget(&caption);
    line->addWidget(mNewCategoryNote, 1);
    layout.addLayout(line, row, column, 1, layout.columnCount() - column);
}

void CVEntryStrip::adjustMetrics() {
    mForField->setMinimumWidth(fontMetrics().averageCharWidth() * kShortestFor + mForField->sizeHint().height() / 2);
}

std::optional<CVEntryProblem> CVEntryStrip::dateProblem() const {
    if (mExpenseDate->isBlank())
        return CVEntryProblem{CVEntryField::Date, tr("The date is missing"),
                              tr("The field “Date” is blank. %1").arg(mExpenseDate->expectation())};
    if (!mExpenseDate->isReadable())
        return CVEntryProblem{
            CVEntryField::Date, tr("The date cannot be read"),
            tr("“%1” in the field “Date” is not a date. %2").arg(mExpenseDate->text(), mExpenseDate->expectation())};
    return std::nullopt;
}

void CVEntryStrip::dateLeftUnreadable() {
    mIsDateProblemPending = true;
    // The alert waits for the event loop: an alert during a focus change would be taken for the new focus.
    QTimer::singleShot(0, this, &CVEntryStrip::tellOfDate);
}

void CVEntryStrip::tellOfDate() {
    // While a mouse button is held the alert waits: the click may end in recording, which reports the problem itself,
    // and an alert would swallow the release of the button.
    if (QGuiApplication::mouseButtons() != Qt::NoButton) {
        QTimer::singleShot(kClickPatience, this, &CVEntryStrip::tellOfDate);
        return;
    }
    const bool isPending = std::exchange(mIsDateProblemPending, false);
    const auto problem = dateProblem();
    if (isPending && problem && isActiveWindow())
        emit dateRefused(*problem);
}

QWidget* CVEntryStrip::widgetOf(CVEntryField field) const {
    switch (field) {
    case CVEntryField::Date:
        return mExpenseDate;
    case CVEntryField::Amount:
        return mExpenseAmountField;
    case CVEntryField::PayTo:
        return mExpenseToFromComboBox;
    case CVEntryField::For:
        return mForField;
    case CVEntryField::Category:
        return mExpenseCategoryComboBox;
    case CVEntryField::Tax:
        break;
    }
    return mTaxCheckbox;
}
