#pragma once

class QPushButton;
class QString;
class QWidget;

/// Makes a tab's Print button; `toolTip` says what the button prints. `tab` owns the button.
[[nodiscard]] QPushButton* CVMakePrintButton(const QString& toolTip, QWidget& tab);
