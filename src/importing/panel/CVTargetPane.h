#pragma once

#include "importing/CVImportTargets.h"

#include <QWidget>

class CVDocument;
class CVWrappingLayout;
class QComboBox;
class QLineEdit;

/// Where money out and money in go: a set, a new set, and for money in also the same set as money out, or nowhere.
/// References the document, which outlives it.
class CVTargetPane final : public QWidget {
    Q_OBJECT

public:
    CVTargetPane(const CVDocument& document, QWidget* parent);

    void setTargets(const CVImportTargets& targets);
    [[nodiscard]] CVImportTargets targets() const;
    [[nodiscard]] QString nameOfSet() const;
    [[nodiscard]] QString nameOfIncomeSet() const;
    /// What the user must still say; empty when nothing.
    [[nodiscard]] QString problem() const;
    /// The layout in whose line the two stand.
    [[nodiscard]] CVWrappingLayout& line() const;

signals:
    void changed();

private:
    /// What an item of a pop-up stands for when it is no set.
    enum Choice { NewSet = -1, SameSet = -2, LeftOut = -3 };
    struct Side {
        QComboBox* box = nullptr;
        QLineEdit* name = nullptr;
    };

    [[nodiscard]] Side addSide(const QString& label, const QString& shortLabel, const char* name);
    void addSets(QComboBox& box) const;
    void showNames();
    [[nodiscard]] static qint64 choice(const Side& side);
    [[nodiscard]] QString problemOf(const Side& side) const;

    const CVDocument& mDocument;
    Side mOut;
    Side mIn;
};
