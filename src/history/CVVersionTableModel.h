#pragma once

#include "history/CVVersionReader.h"
#include "versions/CVListedVersion.h"

#include <QAbstractTableModel>

#include <optional>
#include <vector>

/// The rows of the list of versions: the present budget first, then the versions with what is known of each.
class CVVersionTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { When, Kept, Transactions, Differences, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    /// What is known of versions that are still listed stays until it is found anew.
    void setVersions(const QList<CVListedVersion>& versions, std::size_t presentTransactions);
    void setFindings(const CVVersionFindings& findings);
    /// Writes times and numbers anew, in the locale now in force.
    void updateFormats();

    /// Null for the present budget.
    [[nodiscard]] const CVListedVersion* versionAt(int row) const;
    /// Absent while nothing is known; without differences.
    [[nodiscard]] std::optional<CVVersionFindings> findingsAt(int row) const;
    /// The row of a version, 0 (that of the present budget) when it is not listed.
    [[nodiscard]] int rowOf(const QString& path) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    struct Row {
        CVListedVersion version;
        std::optional<CVVersionFindings> findings;
    };
    /// In signs, or in words for screen readers and tooltips.
    enum class Wording : bool { Signs, Words };
    [[nodiscard]] QString text(int row, int column, Wording wording) const;
    [[nodiscard]] static QString keptText(const Row& row);
    [[nodiscard]] static QString differencesText(const Row& row, Wording wording);
    void changed(int first, int last);

    std::vector<Row> mRows;
    std::size_t mPresentTransactions = 0;
};
