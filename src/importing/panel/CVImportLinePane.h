#pragma once

#include "importing/panel/CVImportRows.h"

#include <QWidget>

#include <optional>

class CVCompletingComboBox;
class CVDocument;
class CVElidedLabel;
class CVImportCountPane;
class CVImportLineModel;
class CVImportLineTable;
class QAction;
class QBoxLayout;
class QLineEdit;
class QPushButton;

/// The lines of a statement as they will be recorded, with what can be done with several of them: search, choose a
/// kind, split, move to the other side, give a category to all of a payee and to all without one.
class CVImportLinePane final : public QWidget {
    Q_OBJECT

public:
    /// The fields complete to what `document` has.
    CVImportLinePane(const CVDocument& document, QWidget* parent);

    /// Puts a control into the line above the lines, before the search.
    void addAbove(QWidget& control);

    void take(CVImportLines lines, const CVImportTargets& targets, CVImportRows::PayeeKeys keys = {});
    void clear();
    /// What was found in the budget for the lines as they are.
    void takeFound(const CVImportLines& found);
    void setNamesOfSets(const QString& out, const QString& in);
    /// Says why there are no lines; a search that finds none says so itself.
    void setMessage(const QString& message);
    void updateFormats();
    [[nodiscard]] const CVImportRows& lines() const;

    /// Takes what is typed into a cell; false when it cannot be read, and the user is led to it.
    [[nodiscard]] bool commit();
    /// Gives the focus to the first line.
    void beginAtFirst();
    /// Whether there was a search with the focus, which is cleared.
    bool clearFocusedSearch();
    void restoreColumns();
    void keepColumns() const;

signals:
    /// The user has changed lines.
    void changed();
    /// As `CVImportLineModel` emits it.
    void placesChanged();

private:
    void addSearch(QBoxLayout& row);
    void addTable();
    void addOffer(QBoxLayout& line);
    void addCounts(QBoxLayout& contents);
    void addGive(QBoxLayout& contents);

    void showState();
    void showMessage();
    void showSelection();
    void offerToOthers(std::size_t line);
    void giveToOthers();
    void giveToAllWithout();
    void splitOrJoin();
    void moveToOtherSide();

    const CVDocument& mDocument;
    QStringList mCategories;
    QString mMessage;
    /// The line whose category is offered to those of the same payee.
    std::optional<std::size_t> mOffered;
    /// The table owns it.
    CVImportLineModel* mModel;
    QBoxLayout* mAbove;
    QLineEdit* mSearch = nullptr;
    CVImportLineTable* mTable;
    QAction* mSplitAction = nullptr;
    QAction* mMoveAction = nullptr;
    QWidget* mOffer;
    CVElidedLabel* mOfferText;
    QPushButton* mOfferButton = nullptr;
    CVImportCountPane* mCounts = nullptr;
    QPushButton* mSplit = nullptr;
    QWidget* mGive;
    CVCompletingComboBox* mGiveCategory;
};
