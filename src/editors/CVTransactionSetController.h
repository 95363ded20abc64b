#pragma once

#include "editors/CVEditorWindow.h"

#include <memory>

class CVAlerts;
class CVDocument;
class CVEditorTable;
class CVTransactionSet;
class CVTransactionSetModel;

/// The window in which transaction sets are added, renamed and deleted. Every change of the user's is announced and
/// saved; a new name is saved with the next change, at the latest when the window closes. References the document, the
/// alerts and the help, which outlive it.
class CVTransactionSetController final : public CVEditorWindow {
    Q_OBJECT

public:
    /// Transactions that belong to no set get one, of their ID 0. Without `help` there is no Help button.
    CVTransactionSetController(CVDocument& document, CVAlerts& alerts, CVHelpOpener* help = nullptr,
                               QWidget* parent = nullptr);
    /// Keeps what is being typed, as every way of closing does: the program may end while the window is open.
    ~CVTransactionSetController() override;

    /// Adds "New Transaction Set" and lets the user type its name.
    void addTransactionSet();
    /// Deletes the selected set with its transactions once the user has confirmed it, twice when there are any. The
    /// current set stays.
    void removeTransactionSet();

    void keepEntries() override;

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
