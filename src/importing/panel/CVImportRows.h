#pragma once

#include "importing/CVImportLine.h"
#include "importing/CVImportTargets.h"

#include <QFlags>
#include <QHash>

#include <array>
#include <memory>
#include <optional>
#include <vector>

/// The lines of a statement as they will be recorded, with what the user has changed in them. What the user has changed
/// stays when the lines are prepared anew.
class CVImportRows final {
public:
    enum class Change { Checked = 1, Day = 2, Amount = 4, Payee = 8, For = 16, Category = 32, Side = 64 };
    Q_DECLARE_FLAGS(Changes, Change)
    /// The kinds of lines that are counted, and all of them; a line may be of several.
    enum class Kind { All, ToImport, WithoutCategory, Guessed, PerhapsRecorded, RecordedAlready, LeftOut, Unreadable };
    static constexpr std::size_t kKinds = static_cast<std::size_t>(Kind::Unreadable) + 1;
    /// A share of a line that is split among categories.
    struct Part {
        qint64 hundredths = 0;
        QString category;
    };

    /// The keys of payees, which take long to make, by the payee.
    using PayeeKeys = QHash<QString, QString>;
    [[nodiscard]] static PayeeKeys keysOf(const CVImportLines& lines);

    /// The changes in lines that are not there, or cannot be read, stay for the next time. `keys` are those of the
    /// lines; one that is missing is made when it is needed.
    void take(CVImportLines lines, const CVImportTargets& targets, PayeeKeys keys = {});

    /// Forgets all lines and what was changed in them.
    void clear();
    /// The lines as they are now, to look again for what is recorded; a part of a split line has no day.
    [[nodiscard]] CVImportLines linesToFind() const;
    /// Whether the user has changed something by which a line is found.
    [[nodiscard]] bool areToBeFound() const;
    /// What was found for these lines; the user's choice what to import stays.
    void takeFound(const CVImportLines& found);

    [[nodiscard]] std::size_t size() const { return mRows.size(); }
    [[nodiscard]] const CVImportLine& at(std::size_t row) const { return mRows[row].line; }
    [[nodiscard]] bool isChanged(std::size_t row, Change change) const { return mRows[row].changes.testFlag(change); }
    /// Whether the line is a share of a line of the statement.
    [[nodiscard]] bool isPart(std::size_t row) const { return mRows[row].whole != nullptr; }
    /// Whether the user has changed anything that would be lost.
    [[nodiscard]] bool hasChanges() const;
    /// Whether the line has a day and an amount.
    [[nodiscard]] bool isReadable(std::size_t row) const { return at(row).note != CVImportLine::Note::Unreadable; }
    /// Whether the line can be recorded at all: money in may be left out.
    [[nodiscard]] bool canBeRecorded(std::size_t row) const;
    [[nodiscard]] bool willBeRecorded(std::size_t row) const { return at(row).checked && canBeRecorded(row); }
    [[nodiscard]] bool is(std::size_t row, Kind kind) const;
    [[nodiscard]] int count(Kind kind) const;
    /// All lines, of which those that cannot be recorded are not checked.
    [[nodiscard]] CVImportLines lines() const;

    void setChecked(std::size_t row, bool isChecked);
    void setDay(std::size_t row, const QBDate& day);
    void setHundredths(std::size_t row, qint64 hundredths);
    void setPayee(std::size_t row, const QString& payee);
    void setFor(std::size_t row, const QString& xfor);
    void setCategory(std::size_t row, const QString& category);
    /// Puts the line among the money that came in, or among that which went out: a refund is negative there.
    void setIncome(std::size_t row, bool isIncome);

    /// The other lines of the same payee that have another category, which the user has not given them.
    [[nodiscard]] std::vector<std::size_t> othersOfPayee(std::size_t row) const;
    void giveCategory(const std::vector<std::size_t>& rows, const QString& category);
    /// Gives a category to every line that will be recorded and has none.
    void giveToAllWithout(const QString& category);

    /// Puts these parts, two or more, into the place of the line; together they have its amount.
    void split(std::size_t row, const std::vector<Part>& parts);
    /// Puts the whole line into the place of the parts that `row` is one of.
    void join(std::size_t row);

private:
    struct Row {
        CVImportLine line;
        /// The amount that was proposed.
        qint64 proposed = 0;
        Changes changes = {};
        /// Of a part, the line before it was split.
        std::shared_ptr<const Row> whole = nullptr;
    };

    [[nodiscard]] static bool isOfAnotherAmount(const Row& former, const CVImportLine& line);
    [[nodiscard]] Row carriedOver(const Row& former, const CVImportLine& line, bool turnsIncome) const;

    std::vector<Row> mRows;
    /// What was changed in lines that are not there at present, by the line of the file.
    QHash<int, std::vector<Row>> mAbsent;
    /// The line, which the user changes so.
    CVImportLine& changed(std::size_t row, Change how);
    [[nodiscard]] const QString& keyOf(const QString& payee) const;

    CVImportTargets mTargets;
    mutable PayeeKeys mKeys;
    /// In the order of `Kind`; absent when lines have changed since.
    mutable std::optional<std::array<int, kKinds>> mCounts;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(CVImportRows::Changes)
