#pragma once

class CVDocument;
struct CVBudgetDifferences;

/// The operation of the program that the window with another file's lines uses. Called on the main thread.
class CVMergeHost {
public:
    /// Brings these lines into the budget as one change, which is saved and announced. `lines` are some of the
    /// differences between `merged` and `ours`, the copy of the present budget that it was made of.
    /// Returns how many lines were brought in; a line is passed over when the budget has changed meanwhile and it fits
    /// no longer.
    virtual int bringIn(const CVDocument& merged, const CVDocument& ours, const CVBudgetDifferences& lines) = 0;

protected:
    ~CVMergeHost() = default;
};
