#pragma once

#include <QAbstractItemDelegate>
#include <QComboBox>

/// The eight frequencies to choose from, as the editor of a table's cell: its list opens by itself, and choosing or
/// closing it ends the editing.
class CVFrequencyBox final : public QComboBox {
    Q_OBJECT

public:
    explicit CVFrequencyBox(QWidget* parent);

    void hidePopup() override;

signals:
    /// The user chose from the list.
    void chosen(QWidget* editor);
    /// The list was closed, after a choice or without one.
    void closed(QWidget* editor, QAbstractItemDelegate::EndEditHint hint);

private:
    void open();
};
