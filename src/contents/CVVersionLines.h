#pragma once

#include "contents/CVTransactionText.h"
#include "contents/CVVersionSign.h"

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

struct CVBudgetDifferences;

/// What is not the same in an earlier version of the budget and in the present one, as lines of a table: sets and
/// categories first, then transactions, newest day first. Dates and amounts are in the locale that was in force when
/// the object was made.
class CVVersionLines final {
    Q_DECLARE_TR_FUNCTIONS(CVVersionLines)

public:
    enum Column { What, Date, Amount, ToFrom, For, Category, Set, Tax, UserFlag, ColumnCount };
    enum class Kind : quint8 { Set, Category, Transaction };
    struct Line {
        CVVersionSign sign;
        Kind kind;
        /// The place among the differences of that kind.
        std::size_t place;
    };
    /// What a cell said in the version and what it says now; the same text twice where nothing changed, and where there
    /// is only one of them.
    struct Cell {
        QString before;
        QString after;
        [[nodiscard]] bool isChanged() const { return before != after; }
    };

    /// `differences` are between the version and the present budget; their records keep their documents alive. Null
    /// gives no lines.
    explicit CVVersionLines(std::shared_ptr<const CVBudgetDifferences> differences);

    [[nodiscard]] static QString title(int column);
    [[nodiscard]] std::size_t size() const { return mLines.size(); }
    [[nodiscard]] const Line& at(std::size_t line) const { return mLines[line]; }
    [[nodiscard]] std::size_t count(CVVersionSign sign) const { return mCounts[static_cast<std::size_t>(sign)]; }
    /// Empty where the line has nothing of that kind, and for a flag that is not set, as in the list. The plan of a
    /// category is its amount.
    [[nodiscard]] Cell cell(std::size_t line, int column) const;
    /// Whether a cell contains the text without regard to case. An empty text matches.
    [[nodiscard]] bool matches(std::size_t line, const QString& text) const;
    /// Sorts lines by the present value of a column, else by that of the version. Lines without a value come last.
    /// Equal ones keep their order.
    void sort(std::vector<std::size_t>& lines, int column, bool descending) const;
    /// The differences behind these lines.
    [[nodiscard]] CVBudgetDifferences only(const std::vector<std::size_t>& lines) const;

private:
    template <typename Difference>
    void append(Kind kind, const std::vector<Difference>& differences);
    /// What the line's record says; `isNow` asks for the present one. Empty for a record that is not there.
    [[nodiscard]] QString text(const Line& line, int column, bool isNow) const;

    [[nodiscard]] bool isClearFlag(const Line& line, int column, bool isNow) const;

    std::shared_ptr<const CVBudgetDifferences> mDifferences;
    std::vector<Line> mLines;
    std::array<std::size_t, kCVVersionSigns> mCounts{};
    CVTransactionText mText;
    QBMoneyFormatter mMoney;
};
