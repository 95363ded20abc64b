#pragma once

#include <QComboBox>

/// A combo box that the wheel changes only while it has the focus: scrolling past it must choose nothing. A text for
/// which it is too narrow is elided, with a tooltip that has all of it.
class CVSteadyComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit CVSteadyComboBox(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void wheelEvent(QWheelEvent* event) override;
};
