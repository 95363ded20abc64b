#pragma once

#include "contents/CVShownSets.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QTabWidget;

/// The pop-up of the transaction sets beside the tab titles, with an entry for all sets at its end. The titles take
/// precedence: where they leave too little room, the pop-up becomes narrower than its names and finally hides its
/// label.
class CVSetPicker final : public QWidget {
    Q_OBJECT

public:
    /// Makes the picker the corner widget of the tabs.
    explicit CVSetPicker(QTabWidget& tabs);

    /// Shows these names, and as chosen the one of that index or all sets. With fewer than two names the picker hides.
    void setNames(const QStringList& names, int current, CVShownSets shownSets);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// The user picked the set with that index.
    void picked(int index);
    /// The user picked all sets.
    void allPicked();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    /// The minimum width of the pop-up.
    [[nodiscard]] int shortestWidth() const;
    void pick(int index);
    [[nodiscard]] int labelWidth() const;

    const QTabWidget& mTabs;
    QLabel* mLabel;
    QComboBox* mTransactionSet;
    QStringList mNames;
};
