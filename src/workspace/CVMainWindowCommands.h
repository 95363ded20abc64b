#pragma once

#include <QObject>

class CVMainWindow;
class CVMainWindowController;
class CVSummaryTabController;
enum class CVCommand;

/// Leads each command of the menus, and the Print buttons, to the operation that carries it out. The arguments of the
/// constructor outlive this object.
class CVMainWindowCommands final : public QObject {
    Q_OBJECT

public:
    CVMainWindowCommands(CVMainWindow& window, CVMainWindowController& controller, CVSummaryTabController& summary);

    /// Carries out a command after committing the open cell editor.
    void choose(CVCommand command);

signals:
    /// The command concerns the application, not the main window.
    void applicationCommandChosen(CVCommand command);

private:
    void find();

    CVMainWindow& mWindow;
    CVMainWindowController& mController;
    CVSummaryTabController& mSummary;
};
