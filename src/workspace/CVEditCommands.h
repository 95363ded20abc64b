#pragma once

class QWidget;

enum class CVEditCommand { Cut, Copy, Paste, SelectAll };

/// The commands of the Edit menu act on the focused widget: a text field, or a table, whose selected rows Copy takes as
/// tab-separated text. They do nothing for null and for other widgets.
[[nodiscard]] bool CVCanEdit(CVEditCommand command, QWidget* focused);
void CVEdit(CVEditCommand command, QWidget* focused);
