#pragma once

#include <QString>

class CVDocument;
class QWidget;
struct CVBudgetDifferences;

/// The operations of the program that the window with the earlier versions uses. Called on the main thread.
class CVHistoryHost {
public:
    /// Undoes these differences in the budget as one change, which is saved and announced. `lines` are some of the
    /// differences between `version` and a copy of the present budget: what was removed since comes back, what was
    /// changed since gets back what it said. Lines that were added since are never among them. Returns how many lines
    /// were undone; a line is passed over when the budget has changed meanwhile and it fits no longer.
    virtual int bringBack(const CVDocument& version, const CVBudgetDifferences& lines) = 0;
    /// Replaces the budget by the version at `path`, after the present state was kept. The user has agreed before, and
    /// is told in `asker` why it failed. The document may be replaced, and `CVHistoryWindow::setDocument` is then
    /// called before this returns. Whether the budget is that version now.
    virtual bool returnTo(const QString& path, QWidget& asker) = 0;
    /// Asks for a place in `asker` and writes the version at `path` there, or the present budget when `path` is empty.
    /// The user is told why it failed. False also when the user cancelled.
    virtual bool saveCopy(const QString& path, QWidget& asker) = 0;

protected:
    ~CVHistoryHost() = default;
};
