#include "importing/panel/CVImportLinePane.h"

#include "base/CVDefaultsKeys.h"
#include "base/QBUserDefaults.h"
#include "contents/CVPaidToList.h"
#include "format/QBLocale.h"
#include "importing/panel/CVImportCountPane.h"
#include "importing/panel/CVImportLineModel.h"
#include "importing/panel/CVImportLineTable.h"
#include "importing/panel/CVSplitWindow.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "widgets/CVCompactButton.h"
#include "widgets/CVElidedLabel.h"
#include "widgets/CVSetAccessibleName.h"
#include "widgets/fields/CVCompletingComboBox.h"
#include "widgets/tables/CVCommitOpenEditor.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>

#include <algorithm>

namespace {

constexpr int kImportSearchInLetters = 24;
constexpr int kGiveInLetters = 16;

QString countText(int count) {
    return QBLocaleInForce().toString(count);
}

} // namespace

CVImportLinePane::CVImportLinePane(const CVDocument& document, QWidget* parent)
    : QWidget(parent)
    , mDocument(document)
    , mModel(new CVImportLineModel)
    , mAbove(new QHBoxLayout)
    , mTable(new CVImportLineTable(*mModel, this))
    , mOffer(new QWidget(this))
    , mOfferText(new CVElidedLabel(mOffer))
    , mGive(new QWidget(this))
    , mGiveCategory(new CVCompletingComboBox(mGive)) {
    auto* const contents = new QVBoxLayout(this);
    contents->setContentsMargins(0, 0, 0, 0);
    contents->addLayout(mAbove);
    addSearch(*mAbove);
    contents->addWidget(mTable, 1);
    addTable();
    addCounts(*contents);
    addGive(*contents);
    connect(mModel, &CVImportLineModel::changed, this, [this] {
        showState();
        emit changed();
    });
    connect(mModel, &CVImportLineModel::placesChanged, this, &CVImportLinePane::placesChanged);
    connect(mModel, &CVImportLineModel::categoryGiven, this, &CVImportLinePane::offerToOthers);
    connect(mModel, &QAbstractItemModel::modelReset, this, &CVImportLinePane::showMessage);
    showState();
}

void CVImportLinePane::addAbove(QWidget& control) {
    mAbove->insertWidget(0, &control, 1);
    setTabOrder(&control, mSearch);
}

void CVImportLinePane::addSearch(QBoxLayout& row) {
    mSearch = new QLineEdit(this);
    mSearch->setObjectName(QStringLiteral("mSearchField"));
    mSearch->setAccessibleName(tr("Search These Lines"));
    mSearch->setPlaceholderText(tr("Search these lines"));
    mSearch->setClearButtonEnabled(true);
    mSearch->setMaximumWidth(kImportSearchInLetters * fontMetrics().averageCharWidth());
    row.addWidget(mSearch, 0, Qt::AlignBottom);
    setTabOrder(mSearch, mTable);
    connect(mSearch, &QLineEdit::textChanged, mModel, &CVImportLineModel::setSearchText);
    auto* const find = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WindowShortcut);
    connect(find, &QShortcut::activated, mSearch, [this] {
        mSearch->setFocus(Qt::ShortcutFocusReason);
        mSearch->selectAll();
    });
}

void CVImportLinePane::addTable() {
    for (const auto& category : mDocument.categories())
        mCategories.append(category->categoryName());
    CVPaidToList payees;
    payees.update(mDocument.transactions(), mDocument.userDefaults().integerForKey(CVDefaultsKeys::kNumberOfItems));
    mTable->setItems(payees.payees(), mCategories);
    mSplitAction = new QAction(mTable);
    mMoveAction = new QAction(mTable);
    connect(mSplitAction, &QAction::triggered, this, &CVImportLinePane::splitOrJoin);
    connect(mMoveAction, &QAction::triggered, this, &CVImportLinePane::moveToOtherSide);
    mTable->addActions({mSplitAction, mMoveAction});
    mTable->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(mTable, &CVImportLineTable::selectedLinesChanged, this, &CVImportLinePane::showSelection);
}

void CVImportLinePane::addOffer(QBoxLayout& line) {
    auto* const row = new QHBoxLayout(mOffer);
    row->setContentsMargins(0, 0, 0, 0);
    mOfferText->setObjectName(QStringLiteral("mOfferText"));
    row->addWidget(mOfferText);
    mOfferButton = &CVCompactButton::addTo(*row, {}, "mOfferButton", *this);
    connect(mOfferButton, &QPushButton::clicked, this, &CVImportLinePane::giveToOthers);
    line.addWidget(mOffer);
}

void CVImportLinePane::addCounts(QBoxLayout& contents) {
    auto* const row = new QHBoxLayout;
    mCounts = new CVImportCountPane(this);
    row->addWidget(mCounts, 1);
    // In a line that is there already, so that nothing moves when it comes and goes.
    addOffer(*row);
    mSplit = &CVCompactButton::addTo(*row, {}, "mSplitButton", *this);
    connect(mSplit, &QPushButton::clicked, this, &CVImportLinePane::splitOrJoin);
    connect(mCounts, &CVImportCountPane::kindChosen, mModel, &CVImportLineModel::setKind);
    contents.addLayout(row);
}

void CVImportLinePane::addGive(QBoxLayout& contents) {
    auto* const row = new QHBoxLayout(mGive);
    row->setContentsMargins(0, 0, 0, 0);
    auto* const label = new QLabel(tr("Give all &without a category:"), mGive);
    label->setBuddy(mGiveCategory);
    mGiveCategory->setObjectName(QStringLiteral("mGiveBox"));
    mGiveCategory->setItems(mCategories);
    mGiveCategory->setEditText({});
    mGiveCategory->setMinimumContentsLength(kGiveInLetters);
    CVSetAccessibleName(*mGiveCategory, tr("Category for All Without One"));
    row->addWidget(label);
    row->addWidget(mGiveCategory);
    QPushButton& give = CVCompactButton::addTo(*row, tr("Gi&ve"), "mGiveButton", *this);
    row->addStretch();
    connect(&give, &QPushButton::clicked, this, &CVImportLinePane::giveToAllWithout);
    connect(mGiveCategory->lineEdit(), &QLineEdit::returnPressed, this, &CVImportLinePane::giveToAllWithout);
    contents.addWidget(mGive);
}

void CVImportLinePane::take(CVImportLines lines, const CVImportTargets& targets, CVImportRows::PayeeKeys keys) {
    mOffered.reset();
    mModel->take(std::move(lines), targets, std::move(keys));
}

void CVImportLinePane::clear() {
    mOffered.reset();
    mModel->clear();
}

void CVImportLinePane::takeFound(const CVImportLines& found) {
    mModel->takeFound(found);
}

void CVImportLinePane::setNamesOfSets(const QString& out, const QString& in) {
    mModel->setNamesOfSets(out, in);
}

void CVImportLinePane::setMessage(const QString& message) {
    mMessage = message;
    showMessage();
}

void CVImportLinePane::updateFormats() {
    mModel->updateFormats();
}

const CVImportRows& CVImportLinePane::lines() const {
    return mModel->lines();
}

bool CVImportLinePane::commit() {
    CVCommitOpenEditor(window()->focusWidget());
    CVFormattedField* const field = mTable->unreadableEditor();
    if (field)
        mTable->returnToEditor(*field);
    return !field;
}

void CVImportLinePane::beginAtFirst() {
    mTable->setFocus();
    mTable->setCurrentIndex(mModel->index(0, CVImportColumns::Category));
}

bool CVImportLinePane::clearFocusedSearch() {
    if (!mSearch->hasFocus() || mSearch->text().isEmpty())
        return false;
    mSearch->clear();
    return true;
}

void CVImportLinePane::restoreColumns() {
    mTable->restoreColumns(mDocument.userDefaults());
}

void CVImportLinePane::keepColumns() const {
    mTable->keepColumns(mDocument.userDefaults());
}

void CVImportLinePane::showState() {
    mCounts->show(lines());
    mGive->setVisible(lines().count(CVImportRows::Kind::WithoutCategory) > 0);
    showMessage();
    showSelection();
    offerToOthers(mOffered.value_or(lines().size()));
}

void CVImportLinePane::showMessage() {
    if (mModel->rowCount() > 0)
        mTable->setMessage({});
    else
        mTable->setMessage(lines().size() > 0 ? tr("No line matches.") : mMessage);
}

void CVImportLinePane::showSelection() {
    const std::vector<std::size_t> selected = mTable->selectedLines();
    const bool isOne = selected.size() == 1 && lines().canBeRecorded(selected.front());
    const bool isPart = isOne && lines().isPart(selected.front());
    const bool canSplit = isOne && lines().at(selected.front()).hundredths != 0;
    mSplit->setText(isPart ? tr("&Put Together") : tr("S&plit…"));
    mSplit->setAccessibleName(QString(mSplit->text()).remove('&'));
    mSplitAction->setText(mSplit->text());
    mSplit->setEnabled(canSplit);
    mSplitAction->setEnabled(canSplit);
    const bool canMove = !selected.empty() && lines().isReadable(selected.front());
    mMoveAction->setEnabled(canMove);
    mMoveAction->setText(canMove && lines().at(selected.front()).isIncome ? tr("&Move to Money Out")
                                                                          : tr("&Move to Money In"));
}

/// Offers the category of that line to the others of the same payee, where there are some.
void CVImportLinePane::offerToOthers(std::size_t line) {
    const bool canOffer = line < lines().size() && !lines().at(line).category.isEmpty();
    const auto count = canOffer ? static_cast<int>(lines().othersOfPayee(line).size()) : 0;
    mOffered = count > 0 ? std::optional(line) : std::nullopt;
    mOffer->setVisible(mOffered.has_value());
    if (!mOffered)
        return;
    const CVImportLine& given = lines().at(line);
    mOfferText->setText(count == 1
                            ? tr("“%1” has 1 other line here.").arg(given.payee)
                            : tr("“%1” has %2 other lines here.", nullptr, count).arg(given.payee, countText(count)));
    const QString category = QString(given.category).replace('&', QStringLiteral("&&"));
    mOfferButton->setText(count == 1 ? tr("“%1” A&lso There", "a category").arg(category)
                                     : tr("“%1” for A&ll", "a category").arg(category));
    mOfferButton->setAccessibleName(count == 1 ? tr("“%1” Also There").arg(given.category)
                                               : tr("“%1” for All").arg(given.category));
    mOfferButton->setAccessibleDescription(mOfferText->text());
}

void CVImportLinePane::giveToOthers() {
    const std::size_t line = *mOffered;
    mOffered.reset();
    mModel->giveCategory(lines().othersOfPayee(line), lines().at(line).category);
    mTable->setFocus();
}

void CVImportLinePane::giveToAllWithout() {
    const QString category = mGiveCategory->enteredText().trimmed();
    if (category.isEmpty())
        return mGiveCategory->setFocus(Qt::OtherFocusReason);
    mTable->setFocus();
    mModel->giveToAllWithout(category);
}

void CVImportLinePane::splitOrJoin() {
    const std::vector<std::size_t> selected = mTable->selectedLines();
    if (!commit() || selected.size() != 1)
        return;
    const std::size_t line = selected.front();
    if (lines().isPart(line))
        mModel->join(line);
    else {
        CVSplitWindow split(lines().at(line), mCategories, this);
        if (split.exec() != QDialog::Accepted)
            return;
        mModel->split(line, split.parts());
    }
    mTable->setFocus();
    mTable->showLine(std::min(line, lines().size() - 1));
}

/// All lines get the other side of the first.
void CVImportLinePane::moveToOtherSide() {
    const std::vector<std::size_t> selected = mTable->selectedLines();
    if (selected.empty() || !commit())
        return;
    mModel->setIncome(selected, !lines().at(selected.front()).isIncome);
}
