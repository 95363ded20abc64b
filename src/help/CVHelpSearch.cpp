#include "help/CVHelpSearch.h"

#include "help/CVHelpBook.h"

#include <QHelpEngine>
#include <QHelpSearchEngine>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace {

/// The words of the typed text, made of letters and digits as in the index.
QStringList wordsOf(const QString& text) {
    static const QRegularExpression others(QStringLiteral("[^\\p{L}\\p{N}]+"));
    return text.split(others, Qt::SkipEmptyParts);
}

/// The query for the index: all words must match, and the last one may be the beginning of a word.
QString queryFor(const QStringList& words) {
    return u'"' + words.join(QLatin1String("\" \"")) + QLatin1String("\"*");
}

} // namespace

CVHelpSearch::CVHelpSearch(const CVHelpBook& book, QWidget* parent)
    : QWidget(parent)
    , mEngine(*book.engine().searchEngine())
    , mField(new QLineEdit(this))
    , mStatus(new QLabel(this))
    , mResults(new QListWidget(this)) {
    mField->setAccessibleName(tr("Search Help"));
    mField->setPlaceholderText(tr("Words to look for"));
    mField->setClearButtonEnabled(true);
    mStatus->setWordWrap(true);
    mResults->setAccessibleName(tr("Pages Found"));
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(mField);
    layout->addWidget(mStatus);
    layout->addWidget(mResults, 1);

    connect(mField, &QLineEdit::textChanged, this, &CVHelpSearch::search);
    connect(mField, &QLineEdit::returnPressed, this, &CVHelpSearch::choose);
    connect(mResults, &QListWidget::itemActivated, this, &CVHelpSearch::choose);
    connect(mResults, &QListWidget::itemClicked, this, &CVHelpSearch::choose);
    connect(&mEngine, &QHelpSearchEngine::indexingFinished, this, &CVHelpSearch::search);
    connect(&mEngine, &QHelpSearchEngine::searchingFinished, this, &CVHelpSearch::showResults);
    mEngine.reindexDocumentation();
}

void CVHelpSearch::focusField() {
    mField->setFocus(Qt::ShortcutFocusReason);
    mField->selectAll();
}

void CVHelpSearch::search() {
    const QStringList words = wordsOf(mField->text());
    if (words.isEmpty())
        showResults(0);
    else
        mEngine.search(queryFor(words));
}

void CVHelpSearch::showResults(int count) {
    if (wordsOf(mField->text()).isEmpty()) {
        mResults->clear();
        mStatus->clear();
        return;
    }
    const QList<QHelpSearchResult> results = mEngine.searchResults(0, mEngine.searchResultCount());
    // The signal of an earlier search may arrive during the next search, which emits its own signal at its end.
    if (results.size() != count)
        return;
    mResults->clear();
    for (const QHelpSearchResult& result : results) {
        auto* const item = new QListWidgetItem(result.title(), mResults);
        item->setData(Qt::UserRole, result.url());
    }
    // The best result is current, so that Return in the field opens it.
    mResults->setCurrentRow(0);
    mStatus->setText(count == 0 ? tr("No page has these words.") : tr("Pages found: %1").arg(count));
}

void CVHelpSearch::choose() {
    const QListWidgetItem* const item = mResults->currentItem();
    if (item)
        emit pageChosen(item->data(Qt::UserRole).toUrl(), wordsOf(mField->text()).constFirst());
}
