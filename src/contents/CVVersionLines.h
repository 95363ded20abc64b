#pragma once

#include "contents/CVTransactionText.h"
#include "contents/CVVersionSign.h"

#include <QHash>

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

struct CVBudgetDifferences;

/// What the present budget is compared with: what it was, or what it is to become once the changes of another file, or
/// what an imported one has besides, are brought in.
enum class CVComparedWith : quint8 { Version, Other, Import };

/// What is not the same in an earlier version of the budget, or in another file, and in the present one, as lines of a
/// table: sets and categories first, then transactions, newest day first. Dates and amounts are in the locale that was
/// in force when the object was made.
class CVVersionLines final {
    Q_DECLARE_TR_FUNCTIONS(CVVersionLines)

public:
    enum Column { What, Date, Amount, ToFrom, For, Category, Set, Tax, UserFlag, ColumnCount };
    enum class Kind : quint8 { Set, Category, Transaction };
    /// What the lines can be told apart by; the first three are those of `CVVersionSign`.
    enum class Group : quint8 { Removed, Added, Changed, ChangedOnBothSides };
    static constexpr std::size_t kGroups = 4;
    struct Line {
        CVVersionSign sign;
        Kind kind;
        /// The place among the differences of that kind.
        std::size_t place;
    };
    /// What a cell said in the version and what it says now, or what it says now and in the other file; the same text
    /// twice where nothing changed, and where there is only one of them.
    struct Cell {
        QString before;
        QString after;
        [[nodiscard]] bool isChanged() const { return before != after; }
    };

    /// Transactions of the other file that were changed here too, each with ours.
    using ChangedTwice = QHash<const CVTransaction*, std::shared_ptr<CVTransaction>>;

    /// `differences` are between the version, or the other file, and the present budget; their records keep their
    /// documents alive. Null gives no lines.
    explicit CVVersionLines(std::shared_ptr<const CVBudgetDifferences> differences,
                            CVComparedWith with = CVComparedWith::Version, ChangedTwice changedTwice = {});

    [[nodiscard]] static QString title(int column);
    [[nodiscard]] std::size_t size() const { return mLines.size(); }
    [[nodiscard]] const Line& at(std::size_t line) const { return mLines[line]; }
    [[nodiscard]] std::size_t count(Group group) const { return mCounts[static_cast<std::size_t>(group)]; }
    [[nodiscard]] Group group(std::size_t line) const { return group(mLines[line]); }
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
    /// What the line's record says; `isLater` asks for the later one. Empty for a record that is not there.
    [[nodiscard]] QString text(const Line& line, int column, bool isLater) const;
    [[nodiscard]] QString text(const CVTransaction& transaction, int column) const;
    [[nodiscard]] Group group(const Line& line) const;
    [[nodiscard]] QString word(const Line& line) const;
    /// Null unless the line was changed on both sides.
    [[nodiscard]] const CVTransaction* ours(const Line& line) const;
    [[nodiscard]] bool isClearFlag(const Line& line, int column, bool isLater) const;
    /// The earlier or the later record of a difference.
    template <typename Difference>
    [[nodiscard]] const auto& recordOf(const Difference& difference, bool isLater) const {
        return isLater == (mWith == CVComparedWith::Version) ? difference.after : difference.before;
    }

    std::shared_ptr<const CVBudgetDifferences> mDifferences;
    CVComparedWith mWith;
    ChangedTwice mChangedTwice;
    std::vector<Line> mLines;
    std::array<std::size_t, kGroups> mCounts{};
    CVTransactionText mText;
    QBMoneyFormatter mMoney;
};
