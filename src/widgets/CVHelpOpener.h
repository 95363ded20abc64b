#pragma once

#include <QString>

class QWidget;

/// Shows pages of the help book.
class CVHelpOpener {
public:
    /// `page` is the file name of a page, such as "Categories.html". When the help book is missing, the user is told so
    /// in `asker`, the window from which the user asked.
    virtual void showHelpPage(const QString& page, QWidget& asker) = 0;

protected:
    ~CVHelpOpener() = default;
};
