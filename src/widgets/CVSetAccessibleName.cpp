#include "widgets/CVSetAccessibleName.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>

void CVSetAccessibleName(QWidget& control, const QString& name) {
    control.setAccessibleName(name);
    if (const auto* const box = qobject_cast<QComboBox*>(&control); box && box->isEditable())
        box->lineEdit()->setAccessibleName(name);
    if (const auto* const tabs = qobject_cast<QTabWidget*>(&control))
        tabs->tabBar()->setAccessibleName(name);
}
