#pragma once

class QWidget;

enum class CVEditCommand { Cut, Copy, Paste, SelectAll };

/// The commands of the Edit menu, carried out on the widget that has the focus: a text field, or a table, from which
/// the selected rows are copied as tab-separated text. Null and other widgets: nothing.
[[nodiscard]] bool CVCanEdit(CVEditCommand command, QWidget* focused);
void CVEdit(CVEditCommand command, QWidget* focused);
