#pragma once

#include <QAbstractTableModel>

class CVCategory;

/// A table of figures with a category in each row. It shows what its contents were at its last reload, which follows
/// each change of theirs.
class CVFiguresModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    virtual void reload() = 0;
    /// By which a row is the same after a reload; null in a row of totals.
    [[nodiscard]] virtual const CVCategory* categoryOfRow(int row) const = 0;
    /// The headers of the rows are not seen; screen readers call a row by its category.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    enum class Shape { Same, Another };

    /// Lives while everything that the table shows is replaced, and announces it. Where rows and columns are the same
    /// as before, selections and an open editor stay.
    class Replacement final {
    public:
        Replacement(CVFiguresModel& model, Shape shape);
        ~Replacement();
        Replacement(const Replacement&) = delete;
        Replacement& operator=(const Replacement&) = delete;

    private:
        CVFiguresModel& mModel;
        Shape mShape;
    };
};
