#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QTabWidget;

/// The pop-up of the transaction sets beside the titles of the tabs. The titles go first: a pop-up for which they leave
/// too little room is narrower than its names, and at last stands without its label.
class CVSetPicker final : public QWidget {
    Q_OBJECT

public:
    /// Becomes the corner of the tabs.
    explicit CVSetPicker(QTabWidget& tabs);

    /// Shows these names; without a choice to make, with less than two, the picker hides.
    void setNames(const QStringList& names, int current);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// The user picked that set.
    void picked(int index);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    /// Of the pop-up.
    [[nodiscard]] int shortestWidth() const;
    [[nodiscard]] int labelWidth() const;

    const QTabWidget& mTabs;
    QLabel* mLabel;
    QComboBox* mTransactionSet;
    QStringList mNames;
};
