#pragma once

#include <QAbstractTableModel>

class CVCategory;

/// The model of a table of sums with one category in each row. The model shows its contents as of the last reload,
/// which must follow each change of the contents.
class CVCategoryTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    virtual void reload() = 0;
    /// The category that identifies a row across reloads; null for a row of totals.
    [[nodiscard]] virtual const CVCategory* categoryOfRow(int row) const = 0;
    /// Row headers are hidden, but screen readers call a row by its category.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    enum class Shape { Same, Another };

    /// Announces that everything in the table is replaced; lives while that happens. Where rows and columns stay the
    /// same, selections and an open editor stay too.
    class Replacement final {
    public:
        Replacement(CVCategoryTableModel& model, Shape shape);
        ~Replacement();
        Replacement(const Replacement&) = delete;
        Replacement& operator=(const Replacement&) = delete;

    private:
        CVCategoryTableModel& mModel;
        Shape mShape;
    };
};
