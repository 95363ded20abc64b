#pragma once

#include <QPixmap>
#include <QStyle>

#include <vector>

class QEvent;
class QPainter;
class QStyleOptionViewItem;

/// The cells of a table that are nothing but a check box, in its middle. The styles put the box of a cell at its edge,
/// and paint it so slowly that each look of it is painted once and kept.
class CVCheckCell final {
public:
    /// The place and the look of the cell are those of `option`; one that is not enabled is painted greyed.
    void paint(QPainter& painter, const QStyleOptionViewItem& option, bool checked) const;

    /// Whether an event on the cell turns its box round: a plain click anywhere in the cell, each one of
    /// a double click, or Space.
    [[nodiscard]] static bool isToggle(const QEvent& event);

private:
    struct Look {
        const QStyle* style = nullptr;
        qint64 palette = 0;
        QStyle::State state;
        QSize size;
        double pixelRatio = 1;

        bool operator==(const Look&) const = default;
    };
    struct Picture {
        Look look;
        QPixmap pixmap;
    };

    mutable std::vector<Picture> mPictures;
};
