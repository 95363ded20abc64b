#include "editors/CVCategoryEditController.h"

#include "base/CVNotifications.h"
#include "base/QBNotificationCenter.h"
#include "base/QBXMLText.h"
#include "contents/CVMergeCategories.h"
#include "editors/CVCategoryEditModel.h"
#include "editors/CVEditorTable.h"
#include "editors/CVMergeQuestion.h"
#include "editors/CVNameFault.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "widgets/CVAlerts.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace {

/// How long to wait before checking again whether a click has ended.
constexpr std::chrono::milliseconds kClickPatience(50);

constexpr int kCategoryWindowWidthInDigits = 56;
constexpr int kCategoryWindowHeightInLines = 32;

} // namespace

CVCategoryEditController::CVCategoryEditController(CVDocument& document, CVAlerts& alerts, CVHelpOpener* help,
                                                   QWidget* parent)
    : CVEditorWindow(tr("Category Editor"), "Category Editor", document.userDefaults(), parent)
    , mDocument(document)
    , mAlerts(alerts)
    , mModel(new CVCategoryEditModel(document, this))
    , mCategoryEditTable(new CVEditorTable(*mModel, CVCategoryEditModel::Category, this)) {
    mCategoryEditTable->setObjectName(QStringLiteral("mCategoryEditTable"));
    mCategoryEditTable->setAccessibleName(tr("Categories Editor"));
    mCategoryEditTable->setSelectionMode(QAbstractItemView::ExtendedSelection);
    mCategoryEditTable->setUsualWidths({0, 11, 11});
    mCategoryEditTable->rememberColumns(document.userDefaults(), "Category Editor Columns");
    contents().addWidget(mCategoryEditTable);
    addControls(help);
    restoreFrame(kCategoryWindowWidthInDigits, kCategoryWindowHeightInLines);
    mCategoryEditTable->setFocus();
    updateControls();

    connect(mModel, &CVCategoryEditModel::edited, this, &CVCategoryEditController::renameCategory);
    connect(mCategoryEditTable, &CVEditorTable::rowsChanged, this, &CVCategoryEditController::updateControls);
}

CVCategoryEditController::~CVCategoryEditController() {
    mCategoryEditTable->commitEdit();
}

void CVCategoryEditController::addCategory() {
    mCategoryEditTable->abandonEdit();
    const auto category = mDocument.insertCategoryName(tr("New Category"));
    reload();
    mCategoryEditTable->editRow(mModel->rowOf(category.get()));
    mDocument.workbookSave();
}

void CVCategoryEditController::removeCategory() {
    mCategoryEditTable->commitEdit();
    // Another row may be selected after the question, which the user has not chosen to delete.
    if (askToMerge())
        return;
    const std::vector<int> rows = mCategoryEditTable->selectedRows();
    CVCategories selected;
    for (const int row : rows)
        selected.push_back(mModel->category(row));
    if (selected.empty() || !confirmRemoval(selected))
        return;
    for (auto left = selected.size(); left > 0; --left)
        mDocument.removeCategory(selected[left - 1]);
    reload();
    mCategoryEditTable->moveCursorTo(rows.front());
    mDocument.workbookSave();
}

void CVCategoryEditController::done(int result) {
    keepEntries();
    askToMerge();
    CVEditorWindow::done(result);
}

void CVCategoryEditController::keepEntries() {
    mCategoryEditTable->commitEdit();
}

void CVCategoryEditController::addControls(CVHelpOpener* help) {
    QPushButton& add = addButton(tr("&Add"));
    // The button must not take the focus on a click: that would commit the edit that addCategory() discards.
    add.setFocusPolicy(Qt::TabFocus);
    connect(&add, &QPushButton::clicked, this, &CVCategoryEditController::addCategory);
    mRemoveCategoryButton = &addButton(tr("&Delete"));
    mRemoveCategoryButton->setObjectName(QStringLiteral("mRemoveCategoryButton"));
    connect(mRemoveCategoryButton, &QPushButton::clicked, this, &CVCategoryEditController::removeCategory);
    auto* const shortcut = new QShortcut(QKeySequence::Delete, mCategoryEditTable);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, mRemoveCategoryButton, &QPushButton::click);
    addHelpButton(help, QStringLiteral("Categories.html"));
}

/// Accepts any name, even an empty one. A name that another category has is asked about once the current event is over:
/// an alert while the editor of the cell is closing would be taken for the new focus.
void CVCategoryEditController::renameCategory(int row, const QString& text) {
    const auto category = mModel->category(row);
    const QString name = xml_storableLine(text);
    if (text == category->categoryName() || name == category->categoryName())
        return;
    if (name.trimmed().isEmpty() || !mDocument.doesCategoryNameExist(name)) {
        rename(*category, name);
        // The row is shown after the current event, because the table selects a row of its own choice at the end of
        // that event.
        QMetaObject::invokeMethod(
            this, [this, category] { showCategory(*category); }, Qt::QueuedConnection);
        return;
    }
    mTakenName = {category, name};
    QTimer::singleShot(0, this, &CVCategoryEditController::askOnceNoButtonIsHeld);
}

void CVCategoryEditController::rename(CVCategory& category, const QString& name) {
    category.setCategoryName(name);
    mDocument.sortCategories();
    // The notification of the new name was sent before sorting; observers that show the categories in order need this
    // second one.
    mDocument.notificationCenter().postNotification(QLatin1String(CVNotifications::kCategoryAddedRemoved));
    mModel->reorder();
    mDocument.workbookSave();
}

/// While a mouse button is held the question waits: an alert would swallow the release of the button.
void CVCategoryEditController::askOnceNoButtonIsHeld() {
    if (mTakenName.category && QGuiApplication::mouseButtons() != Qt::NoButton)
        QTimer::singleShot(kClickPatience, this, &CVCategoryEditController::askOnceNoButtonIsHeld);
    else
        askToMerge();
}

/// Asks what to do about a name that another category has. Whether there was such a name.
bool CVCategoryEditController::askToMerge() {
    const auto [category, name] = std::exchange(mTakenName, {});
    const auto other = category ? mDocument.doesCategoryNameExist(name) : nullptr;
    if (!other || category->document() != &mDocument)
        return false;
    const auto answer = mAlerts.run(this, CVMergeQuestion(CVExamineMerge(mDocument, category, other)));
    if (answer == CVAlert::kDefault) {
        merge(category, other);
        return true;
    }
    if (answer == CVAlert::kOther && category->document() == &mDocument)
        rename(*category, name);
    showCategory(*category);
    return true;
}

void CVCategoryEditController::merge(const std::shared_ptr<CVCategory>& from, const std::shared_ptr<CVCategory>& into) {
    if (!CVMergeCategories(mDocument, from, into))
        return;
    reload();
    showCategory(*into);
    mDocument.workbookSave();
    emit categoriesMerged(from->categoryName(), into->categoryName());
}

bool CVCategoryEditController::confirmRemoval(const CVCategories& categories) {
    const QString title =
        categories.size() == 1
            ? tr("Are you sure you want to delete the '%1' category?").arg(categories.front()->categoryName())
            : tr("Are you sure you want to delete the %1 selected categories?").arg(categories.size());
    return mAlerts.run(this, {title, tr("You can't undo this action."), tr("Delete"), tr("Cancel")}) ==
           CVAlert::kDefault;
}

void CVCategoryEditController::showCategory(const CVCategory& category) {
    const int row = mModel->rowOf(&category);
    if (row < 0)
        return;
    mCategoryEditTable->showRow(row);
    updateControls();
    announceRemark();
}

void CVCategoryEditController::reload() {
    mModel->reload();
    mCategoryEditTable->setMessage(mModel->rowCount() > 0 ? QString()
                                                          : tr("No categories yet. Add your first one below."));
    updateControls();
}

/// The Delete button depends on the row selected last: categories in use can be deleted only together with an unused
/// one that was selected last.
void CVCategoryEditController::updateControls() {
    const auto row = mCategoryEditTable->lastSelectedRow();
    mRemoveCategoryButton->setEnabled(row && !mModel->isInUse(*row));
    setRemark(remark());
}

/// The remark on the row that was selected last.
QString CVCategoryEditController::remark() const {
    const auto row = mCategoryEditTable->lastSelectedRow();
    if (!row)
        return {};
    switch (CVFaultOfName(mModel->index(*row, CVCategoryEditModel::Category))) {
    case CVNameFault::Empty:
        return tr("This category has no name.");
    case CVNameFault::Taken:
        return tr("Another category has this name too.");
    case CVNameFault::None:
        break;
    }
    return mModel->isInUse(*row) ? tr("Transactions use this category, so it is not offered for deletion.") : QString();
}
