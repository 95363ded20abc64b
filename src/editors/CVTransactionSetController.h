#pragma once

#include "editors/CVEditorWindow.h"

#include <memory>

class CVAlerts;
class CVDocument;
class CVEditorTable;
class CVTransactionSet;
class CVTransactionSetModel;

/// The window in which the user adds, renames and deletes transaction sets. Every change is announced. Every change is
/// saved at once, except a new name, which is saved with the next change or when the window closes. References the
/// document, the alerts and the help, which outlive it.
class CVTransactionSetController final : public CVEditorWindow {
    Q_OBJECT

public:
    /// Makes a set with ID 0 for transactions that belong to no set. Without `help` there is no Help button.
    CVTransactionSetController(CVDocument& document, CVAlerts& alerts, CVHelpOpener* help = nullptr,
                               QWidget* parent = nullptr);
    /// Commits what the user is typing, because the program may end while the window is open.
    ~CVTransactionSetController() override;

    /// Adds "New Transaction Set" and lets the user type its name.
    void addTransactionSet();
    /// Deletes the selected set with its transactions once the user has confirmed it, twice when the set has
    /// transactions. The current set cannot be deleted.
    void removeTransactionSet();

    void keepEntries() override;

signals:
    /// A set was deleted together with that many transactions, at least one.
    void transactionsRemoved(int count);

private:
    void makeInitialSet();
    void addControls(CVHelpOpener* help);
    void renameSet(int row, const QString& text);
    [[nodiscard]] bool isCurrentSet(int row) const;
    [[nodiscard]] bool confirmRemoval(const CVTransactionSet& set, qsizetype count);
    void refuseRemoval();
    void announce(const std::shared_ptr<CVTransactionSet>& set) const;
    void save();
    void saveName();
    void reload();
    void updateControls();
    [[nodiscard]] QString remark() const;

    CVDocument& mDocument;
    CVAlerts& mAlerts;
    CVTransactionSetModel* mModel = nullptr;
    CVEditorTable* mTransactionSetTable = nullptr;
    QPushButton* mRemoveTransactionSetButton = nullptr;
    bool mHasUnsavedName = false;
};
