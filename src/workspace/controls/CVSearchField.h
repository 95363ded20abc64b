#pragma once

#include <QLineEdit>

class QMenu;

/// The search text of the list. The menu behind its glass picks what is searched; the kind shows as placeholder.
class CVSearchField final : public QLineEdit {
    Q_OBJECT

public:
    explicit CVSearchField(QWidget* parent = nullptr);

    /// The number of the kind that is checked in the menu.
    [[nodiscard]] int searchType() const { return mSearchType; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// The text has changed, with every key.
    void searched(const QString& text);
    void searchTypePicked(int kind);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void setSearchType(int kind);
    void showKinds();

    QMenu* mKinds;
    int mSearchType = 0;
};
