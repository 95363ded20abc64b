#pragma once

class QString;
class QWidget;

/// Names a control and the part of it that screen readers treat as an object of its own: the line edit of an editable
/// combo box, the tab bar of a tab widget.
void CVSetAccessibleName(QWidget& control, const QString& name);
