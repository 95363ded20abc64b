#include "editors/CVMergeQuestion.h"

#include "budget/CVLabelOfFrequency.h"
#include "contents/CVMergeCategories.h"
#include "format/QBMoneyFormatter.h"
#include "model/CVCategory.h"

#include <QCoreApplication>

namespace {

struct MergeText {
    Q_DECLARE_TR_FUNCTIONS(CVMergeQuestion)
};

QString number(std::size_t count) {
    return QBLocaleInForce().toString(static_cast<qulonglong>(count));
}

/// How many transactions the category that stays has.
QString sentenceOnStaying(const CVCategoryMerge& merge) {
    const QString name = merge.into->categoryName();
    if (merge.staying == 1)
        return MergeText::tr("There is a category “%1” already, with 1 transaction.").arg(name);
    return MergeText::tr("There is a category “%1” already, with %2 transactions.", nullptr,
                         static_cast<int>(merge.staying))
        .arg(name, number(merge.staying));
}

QString sentenceOnMoving(const CVCategoryMerge& merge) {
    const QString from = merge.from->categoryName();
    const QString into = merge.into->categoryName();
    if (merge.moving == 0)
        return MergeText::tr("“%1”, which no transaction has, goes.").arg(from);
    if (merge.moving == 1)
        return MergeText::tr("The 1 transaction of “%1” gets the category “%2”, and “%1” goes.").arg(from, into);
    return MergeText::tr("The %3 transactions of “%1” get the category “%2”, and “%1” goes.", nullptr,
                         static_cast<int>(merge.moving))
        .arg(from, into, number(merge.moving));
}

/// The plan of a category as its amount and its frequency.
QString planOf(const CVCategory& category) {
    return MergeText::tr("%1 %2", "amount and frequency of a plan")
        .arg(QBMoneyFormatter().string(category.expenseTarget()), CVLabelOfFrequency(category.expenseFrequency()));
}

/// Which plan stays; empty where neither category has one.
QString sentenceOnPlan(const CVCategoryMerge& merge) {
    const QString from = merge.from->categoryName();
    const QString into = merge.into->categoryName();
    if (merge.planned == merge.from)
        return MergeText::tr("“%1” has no plan and takes over that of “%2” (%3).").arg(into, from, planOf(*merge.from));
    if (merge.into->expenseTarget() == 0)
        return {};
    if (merge.from->expenseTarget() == 0)
        return MergeText::tr("The plan of “%1” stays (%2).").arg(into, planOf(*merge.into));
    return MergeText::tr("The plan of “%1” stays (%2); that of “%3” goes (%4).")
        .arg(into, planOf(*merge.into), from, planOf(*merge.from));
}

} // namespace

CVAlert CVMergeQuestion(const CVCategoryMerge& merge) {
    QStringList sentences{sentenceOnStaying(merge), sentenceOnMoving(merge), sentenceOnPlan(merge),
                          MergeText::tr("You can't undo this action.")};
    sentences.removeAll(QString());
    CVAlert question;
    question.title = MergeText::tr("Merge “%1” into “%2”?").arg(merge.from->categoryName(), merge.into->categoryName());
    question.message = sentences.join(QLatin1Char(' '));
    question.defaultButton = MergeText::tr("Merge");
    question.alternateButton = MergeText::tr("Cancel");
    question.otherButton = MergeText::tr("Keep Both");
    return question;
}
