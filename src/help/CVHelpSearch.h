#pragma once

#include <QWidget>

class CVHelpBook;
class QHelpSearchEngine;
class QLabel;
class QLineEdit;
class QListWidget;

/// The full-text search of the help book. The search runs at every key and also finds words that begin with the last
/// word. References the book, which outlives it.
class CVHelpSearch final : public QWidget {
    Q_OBJECT

public:
    explicit CVHelpSearch(const CVHelpBook& book, QWidget* parent = nullptr);

    void focusField();

signals:
    /// The user chose a page from the results.
    void pageChosen(const QUrl& address, const QString& word);

private:
    void search();
    void showResults(int count);
    void choose();

    QHelpSearchEngine& mEngine;
    QLineEdit* mField;
    QLabel* mStatus;
    QListWidget* mResults;
};
