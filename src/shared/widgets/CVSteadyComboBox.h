#pragma once

#include <QComboBox>

/// A combo box that the wheel changes only while it has the focus: scrolling past it must choose nothing.
class CVSteadyComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit CVSteadyComboBox(QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
};
