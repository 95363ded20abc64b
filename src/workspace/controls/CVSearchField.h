#pragma once

#include <QLineEdit>

class QMenu;

/// The search field of the list. The menu of its magnifying glass chooses what is searched; the placeholder text shows
/// the choice.
class CVSearchField final : public QLineEdit {
    Q_OBJECT

public:
    explicit CVSearchField(QWidget* parent = nullptr);

    /// The index of the kind of search that is checked in the menu.
    [[nodiscard]] int searchType() const { return mSearchType; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    /// The text has changed; emitted at every key.
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
