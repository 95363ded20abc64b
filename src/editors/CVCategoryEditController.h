#pragma once

#include "editors/CVEditorWindow.h"
#include "model/CVCollections.h"

#include <memory>

class CVAlerts;
class CVCategory;
class CVCategoryEditModel;
class CVDocument;
class CVEditorTable;

/// The window in which the user adds, renames and deletes categories. Every change is announced and saved at once.
/// References the document, the alerts and the help, which outlive it.
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

    void keepEntries() override;

private:
    void addControls(CVHelpOpener* help);
    void renameCategory(int row, const QString& text);
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
};
