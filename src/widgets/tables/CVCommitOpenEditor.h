#pragma once

class QWidget;

/// Commits the cell editor that `focused` is or lies in, and gives the focus to its table. Any other widget keeps the
/// focus. `focused` may be null.
void CVCommitOpenEditor(QWidget* focused);
