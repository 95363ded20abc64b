#pragma once

#include "importing/panel/CVImportRows.h"

#include <QWidget>

#include <array>

class QPushButton;

/// How many lines are of each kind; a click shows only those, another one all.
class CVImportCountPane final : public QWidget {
    Q_OBJECT

public:
    explicit CVImportCountPane(QWidget* parent = nullptr);

    void show(const CVImportRows& lines);

signals:
    void kindChosen(CVImportRows::Kind kind);

private:
    static constexpr std::array kKinds{CVImportRows::Kind::ToImport,        CVImportRows::Kind::WithoutCategory,
                                       CVImportRows::Kind::Guessed,         CVImportRows::Kind::PerhapsRecorded,
                                       CVImportRows::Kind::RecordedAlready, CVImportRows::Kind::LeftOut,
                                       CVImportRows::Kind::Unreadable};

    [[nodiscard]] static QString text(CVImportRows::Kind kind, int count);
    void toggle(std::size_t place, bool isOn);

    /// In the order of `kKinds`.
    std::array<QPushButton*, kKinds.size()> mButtons{};
};
