#pragma once

#include <memory>
#include <vector>

class CVCategory;
class CVTransaction;
class CVTransactionSet;

/// Records in an order. The document and the lists of a window share them.
using CVTransactions = std::vector<std::shared_ptr<CVTransaction>>;
using CVCategories = std::vector<std::shared_ptr<CVCategory>>;
using CVTransactionSets = std::vector<std::shared_ptr<CVTransactionSet>>;
