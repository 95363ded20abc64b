#pragma once

#include <QObject>

class CVMainWindow;
class CVMainWindowController;
class CVSummaryTabController;
enum class CVCommand;

/// Leads each command of the menus to the operation that carries it out. References all that it is made with, which
/// outlives it.
class CVMainWindowCommands final : public QObject {
    Q_OBJECT

public:
    CVMainWindowCommands(CVMainWindow& window, CVMainWindowController& controller, CVSummaryTabController& summary);

    /// What is being typed into a cell is entered first.
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
