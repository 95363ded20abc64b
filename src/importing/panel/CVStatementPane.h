#pragma once

#include "importing/statements/CVStatement.h"

#include <QWidget>

#include <memory>

class CVStatementRowModel;
class CVTableView;
class CVWrappingLayout;
class QComboBox;
class QSpinBox;

/// How a statement is read: its first rows with a pop-up for the meaning of each column, and the marks and forms that
/// were recognised, each of which the user can change.
class CVStatementPane final : public QWidget {
    Q_OBJECT

public:
    explicit CVStatementPane(QWidget* parent = nullptr);

    /// `known` is what the statement was asked to be read as.
    void show(std::shared_ptr<const CVStatement> statement, const CVStatementMapping& known);

signals:
    /// The statement is to be read so.
    void changed(const CVStatementMapping& known);

private:
    [[nodiscard]] QComboBox* addPopUp(CVWrappingLayout& line, const QString& label, const char* name);
    [[nodiscard]] QSpinBox* addNumber(CVWrappingLayout& line, const QString& label, const char* name);
    void connectPopUps();
    void showForms();
    void offerWhatMatters();
    void showMeanings();
    void fitHeight();
    void chooseMeaning(std::size_t column, CVColumnRole role);
    /// What the columns mean is guessed anew where they may be other columns.
    void tell(bool areOtherColumns);

    std::shared_ptr<const CVStatement> mStatement;
    CVStatementMapping mKnown;
    QComboBox* mSeparator = nullptr;
    QComboBox* mEncoding = nullptr;
    QComboBox* mDayOrder = nullptr;
    QComboBox* mDecimalMark = nullptr;
    QComboBox* mSign = nullptr;
    QSpinBox* mHeaderLine = nullptr;
    QSpinBox* mYear = nullptr;
    CVStatementRowModel* mModel;
    CVTableView* mTable;
};
