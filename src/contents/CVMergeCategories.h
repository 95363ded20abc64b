#pragma once

#include <cstddef>
#include <memory>

class CVCategory;
class CVDocument;

/// What joining two categories does: the transactions of one, in whatever set, get the other one, and the first goes.
struct CVCategoryMerge {
    std::shared_ptr<CVCategory> from;
    std::shared_ptr<CVCategory> into;
    /// How many transactions get another category, and how many had it before.
    std::size_t moving = 0;
    std::size_t staying = 0;
    /// The category whose plan is that of both from then on: `into`, unless `from` alone has a plan.
    std::shared_ptr<CVCategory> planned;
};

/// Says what `CVMergeCategories` would do; changes nothing.
[[nodiscard]] CVCategoryMerge CVExamineMerge(const CVDocument& document, const std::shared_ptr<CVCategory>& from,
                                             const std::shared_ptr<CVCategory>& into);

/// Joins two categories of the document as one change, announced once, and asks for the budget before it to be kept as
/// an earlier version. Does not save. Does nothing and returns false unless both are different categories of the
/// document.
[[nodiscard]] bool CVMergeCategories(CVDocument& document, const std::shared_ptr<CVCategory>& from,
                                     const std::shared_ptr<CVCategory>& into);
