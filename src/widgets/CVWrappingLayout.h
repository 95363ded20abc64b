#pragma once

#include <QLayout>

#include <memory>
#include <vector>

/// Parts beside each other. A part for which the line has no room, even when all are at their smallest, begins the next
/// line. Parts with a stretch share what a line has left; without such parts the last one ends at the line's edge.
class CVWrappingLayout final : public QLayout {
    Q_OBJECT

public:
    explicit CVWrappingLayout(QWidget* parent = nullptr);
    ~CVWrappingLayout() override;

    /// The layout becomes this one's child.
    void addPart(QLayout* part, int stretch = 0);

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    /// All in one line.
    [[nodiscard]] QSize sizeHint() const override;
    /// As wide as the widest part; the lines that take the other parts add to the height only once the width is known.
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Part {
        std::unique_ptr<QLayoutItem> item;
        int stretch = 0;
    };
    /// The parts of a line, by their numbers: from `first` to before `end`.
    struct Line {
        std::size_t first = 0;
        std::size_t end = 0;
        int height = 0;
    };

    [[nodiscard]] int gap(Qt::Orientation orientation) const;
    [[nodiscard]] std::vector<Line> lines(int width) const;
    [[nodiscard]] std::vector<int> widths(const Line& line, int width) const;
    void place(const Line& line, const QRect& rect) const;

    std::vector<Part> mParts;
};
