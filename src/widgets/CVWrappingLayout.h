#pragma once

#include <QLayout>

#include <memory>
#include <vector>

/// Places its parts side by side. A part that does not fit into the line, even when all parts have their minimum width,
/// begins the next line. Parts with a stretch share the remaining room of a line; without such parts, the last part is
/// placed at the end of the line.
class CVWrappingLayout final : public QLayout {
    Q_OBJECT

public:
    explicit CVWrappingLayout(QWidget* parent = nullptr);
    ~CVWrappingLayout() override;

    /// Takes ownership of `part`.
    void addPart(QLayout* part, int stretch = 0);

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    /// The size with all parts in one line.
    [[nodiscard]] QSize sizeHint() const override;
    /// The size of one line as wide as the widest part; heightForWidth() adds the height of further lines.
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Part {
        std::unique_ptr<QLayoutItem> item;
        int stretch = 0;
    };
    /// The parts of a line: the indexes from `first` up to, but not including, `end`.
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
