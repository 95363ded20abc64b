#pragma once

#include <QComboBox>

/// A combo box that the mouse wheel changes only while the box has the focus, so that scrolling the window past the box
/// chooses nothing. A text that is too wide is elided, and its tooltip shows all of it.
class CVWheelSafeComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit CVWheelSafeComboBox(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void wheelEvent(QWheelEvent* event) override;
};
