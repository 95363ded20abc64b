#pragma once

#include <QAccessibleWidget>

class QComboBox;

/// How a screen reader sees a combo box: the label is its name and the chosen text is its value. The toolkit's own
/// interface uses the text for both on this platform, so that the name would change with every choice.
class CVAccessibleComboBox final : public QAccessibleWidget {
public:
    explicit CVAccessibleComboBox(QComboBox& box);

    /// Uses this interface for all combo boxes that a screen reader asks about from now on.
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
