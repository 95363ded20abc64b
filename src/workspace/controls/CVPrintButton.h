#pragma once

class QPushButton;
class QString;
class QWidget;

/// The button of a tab that prints what the tab shows, with what that is as its tooltip. The tab owns it.
[[nodiscard]] QPushButton* CVMakePrintButton(const QString& toolTip, QWidget& tab);
