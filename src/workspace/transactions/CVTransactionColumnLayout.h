#pragma once

#include "contents/CVShownSets.h"

#include <QByteArray>
#include <QObject>

class QHeaderView;
class QTableView;

/// The widths and the order of the columns of the transaction table. They are the usual ones, as far as the window has
/// room, until the user changes them. The list of all sets has a column more and a layout of its own: until the user
/// changes that one, it is the layout of one set with the further column at its end. The table outlives the object.
class CVTransactionColumnLayout final : public QObject {
    Q_OBJECT

public:
    /// The table shows one set; its model is set.
    explicit CVTransactionColumnLayout(QTableView& table);

    /// What the user has made of a layout, for `restore`; empty where the user has changed nothing.
    [[nodiscard]] QByteArray save(CVShownSets shownSets) const;
    /// Restores what `save` returned for one set and for all sets. Other bytes count as none.
    void restore(const QByteArray& ofCurrent, const QByteArray& ofAll);
    /// Fits usual widths to the window and its letters.
    void fit();

    /// Call the first before the model gains or loses the column of the sets and the second afterwards.
    void keep();
    void show(CVShownSets shownSets);

private:
    [[nodiscard]] const QByteArray& kept(CVShownSets shownSets) const;
    void connectHeader();
    void changed();
    void setUsualOrder();
    void setUsualWidths();

    QTableView& mTable;
    QHeaderView& mHeader;
    CVShownSets mShownSets = CVShownSets::Current;
    QByteArray mOfCurrent;
    QByteArray mOfAll;
    /// The widths follow the window.
    bool mIsUsual = true;
    /// The user has changed the layout that is shown.
    bool mIsOwn = false;
    bool mIsFitting = false;
};
