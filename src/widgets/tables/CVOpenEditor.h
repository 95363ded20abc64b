#pragma once

class QWidget;

/// Commits what is being typed into a cell and gives the focus to its table, where `focused` (which may be null) is, or
/// lies in, the editor of one. Other fields keep the focus.
void CVCommitOpenEditor(QWidget* focused);
