#pragma once

#include <QAbstractItemDelegate>
#include <QComboBox>

/// The editor of a table cell with a frequency: a list of the eight frequencies that opens by itself. Choosing an item
/// or closing the list ends editing.
class CVFrequencyBox final : public QComboBox {
    Q_OBJECT

public:
    explicit CVFrequencyBox(QWidget* parent);

    void hidePopup() override;

signals:
    /// The user chose from the list.
    void chosen(QWidget* editor);
    /// The list was closed, with or without a choice.
    void closed(QWidget* editor, QAbstractItemDelegate::EndEditHint hint);

private:
    void open();
};
