#pragma once

class QString;
class QWidget;

/// Names a control and, where a part of it has a place of its own in the eyes of a screen reader, that too: the text
/// of an editable combo box, the bar of a tab widget.
void CVSetAccessibleName(QWidget& control, const QString& name);
