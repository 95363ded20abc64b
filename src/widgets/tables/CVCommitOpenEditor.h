#pragma once

class QAbstractItemView;
class QWidget;

/// The table in which `focused` is an open cell editor or a part of one; null for any other widget and for null.
[[nodiscard]] QAbstractItemView* CVTableOfOpenEditor(const QWidget* focused);

/// Commits the cell editor that `focused` is or lies in, and gives the focus to its table. Any other widget keeps the
/// focus. `focused` may be null.
void CVCommitOpenEditor(QWidget* focused);
