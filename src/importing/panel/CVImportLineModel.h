#pragma once

#include "importing/panel/CVImportLineText.h"
#include "importing/panel/CVImportRows.h"

#include <QAbstractTableModel>

/// The table of the lines of a statement: those that the search and the chosen kind let through, in the order of the
/// chosen column. A line that the user changes stays where it is until the search, the kind or the order is chosen
/// anew.
class CVImportLineModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using enum CVImportColumns::Column;

    using QAbstractTableModel::QAbstractTableModel;

    /// Lines that were prepared anew; what the user has changed in them stays.
    void take(CVImportLines lines, const CVImportTargets& targets, CVImportRows::PayeeKeys keys = {});
    void clear();
    /// What was found in the budget for the lines as they are.
    void takeFound(const CVImportLines& found);
    /// The names of the sets that money out and money in go into.
    void setNamesOfSets(const QString& out, const QString& in);
    void setSearchText(const QString& text);
    void setKind(CVImportRows::Kind kind);
    /// Takes the formats of the locale now in force.
    void updateFormats();

    [[nodiscard]] const CVImportRows& lines() const { return mLines; }
    /// The line that a row shows.
    [[nodiscard]] std::size_t lineAt(int row) const { return mOrder[static_cast<std::size_t>(row)]; }
    [[nodiscard]] const CVImportLineText& text() const { return mText; }

    void setChecked(const std::vector<std::size_t>& lines, bool isChecked);
    void setIncome(const std::vector<std::size_t>& lines, bool isIncome);
    void giveCategory(const std::vector<std::size_t>& lines, const QString& category);
    void giveToAllWithout(const QString& category);
    void split(std::size_t line, const std::vector<CVImportRows::Part>& parts);
    void join(std::size_t line);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// A day is a std::optional<QBDate>, an amount a double, a side true for money in.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// Column -1 gives the order of the statement.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

signals:
    /// The user has changed lines.
    void changed();
    /// The user has given a line another day, amount or side, so that another transaction may be the same.
    void placesChanged();
    /// The user has given that line a category.
    void categoryGiven(std::size_t line);

private:
    void build();
    void tellAll();
    [[nodiscard]] std::vector<std::size_t> order() const;
    [[nodiscard]] bool matches(std::size_t line) const;
    /// What a line is sorted by: a number, or a text without regard to case.
    struct SortKey {
        qint64 number = 0;
        QString text = {};
        friend bool operator<(const SortKey& a, const SortKey& b) {
            return a.number != b.number ? a.number < b.number : a.text < b.text;
        }
    };
    [[nodiscard]] SortKey sortKey(std::size_t line) const;
    [[nodiscard]] QVariant value(std::size_t line, int column) const;
    [[nodiscard]] QVariant toolTip(std::size_t line, int column) const;
    [[nodiscard]] QVariant font(std::size_t line, int column) const;
    [[nodiscard]] bool change(std::size_t line, int column, const QVariant& value);

    CVImportRows mLines;
    CVImportLineText mText{mLines};
    std::vector<std::size_t> mOrder;
    QString mSearchText;
    CVImportRows::Kind mKind = CVImportRows::Kind::All;
    int mColumn = -1;
    Qt::SortOrder mSortOrder = Qt::AscendingOrder;
};
