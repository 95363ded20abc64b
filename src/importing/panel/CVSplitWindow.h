#pragma once

#include "importing/panel/CVImportRows.h"

#include <QDialog>

#include <vector>

class CVCompletingComboBox;
class CVMoneyField;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// Splits a line of a statement among categories. The first part keeps what the others leave.
class CVSplitWindow final : public QDialog {
    Q_OBJECT

public:
    CVSplitWindow(const CVImportLine& line, QStringList categories, QWidget* parent);
    ~CVSplitWindow() override;

    /// At least two, once the user has agreed.
    [[nodiscard]] std::vector<CVImportRows::Part> parts() const;

private:
    struct Share {
        /// Null for the first part.
        CVMoneyField* amount = nullptr;
        CVCompletingComboBox* category = nullptr;
    };

    void addFirst(const QString& category);
    void addShare();
    [[nodiscard]] CVCompletingComboBox* makeCategory();
    [[nodiscard]] qint64 rest() const;
    [[nodiscard]] bool areAmountsReadable() const;
    void showState();

    qint64 mWhole;
    QStringList mCategories;
    QVBoxLayout* mLines;
    QLabel* mRest = nullptr;
    QPushButton* mSplit;
    std::vector<Share> mShares;
};
