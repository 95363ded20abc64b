#pragma once

#include <QAccessibleWidget>

class QComboBox;

/// What a screen reader hears of a combo box: its name as the label says it, and its text as its value. The toolkit's
/// own description gives the text for both on this platform, so that the name would change with every choice.
class CVAccessibleComboBox final : public QAccessibleWidget {
public:
    explicit CVAccessibleComboBox(QComboBox& box);

    /// Describes all combo boxes that are created from now on.
    static void install();

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    [[nodiscard]] QComboBox& box() const;
};
