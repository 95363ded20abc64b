#pragma once

#include "editors/CVEditorWindow.h"
#include "model/CVCollections.h"

#include <QString>

#include <memory>

class CVAlerts;
class CVCategory;
class CVCategoryEditModel;
class CVDocument;
class CVEditorTable;

/// The window in which the user adds, renames, merges and deletes categories. Every change is announced and saved at
/// once. References the document, the alerts and the help, which outlive it.
class CVCategoryEditController final : public CVEditorWindow {
    Q_OBJECT

public:
    /// Without `help` there is no Help button.
    CVCategoryEditController(CVDocument& document, CVAlerts& alerts, CVHelpOpener* help = nullptr,
                             QWidget* parent = nullptr);
    /// Commits what the user is typing, because the program may end while the window is open.
    ~CVCategoryEditController() override;

    /// Adds "New Category", or selects an existing one, and opens the editor of its name. An edit in progress is
    /// discarded.
    void addCategory();
    /// Deletes the selected categories, even those in use, once the user has confirmed it. Their transactions stay.
    void removeCategory();

    /// Asks first what is left to ask about a name.
    void done(int result) override;
    void keepEntries() override;

signals:
    /// The category that was called `from` is one with `into` now.
    void categoriesMerged(const QString& from, const QString& into);

private:
    /// A category and the name that the user typed for it, which another category has.
    struct TakenName {
        std::shared_ptr<CVCategory> category;
        QString name;
    };

    void addControls(CVHelpOpener* help);
    void renameCategory(int row, const QString& text);
    void rename(CVCategory& category, const QString& name);
    void askOnceNoButtonIsHeld();
    bool askToMerge();
    void merge(const std::shared_ptr<CVCategory>& from, const std::shared_ptr<CVCategory>& into);
    [[nodiscard]] bool confirmRemoval(const CVCategories& categories);
    void showCategory(const CVCategory& category);
    void reload();
    void updateControls();
    [[nodiscard]] QString remark() const;

    CVDocument& mDocument;
    CVAlerts& mAlerts;
    CVCategoryEditModel* mModel;
    CVEditorTable* mCategoryEditTable;
    QPushButton* mRemoveCategoryButton = nullptr;
    /// What the user has not been asked about yet.
    TakenName mTakenName;
};
