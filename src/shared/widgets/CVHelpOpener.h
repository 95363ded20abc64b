#pragma once

#include <QString>

/// Shows pages of the help book.
class CVHelpOpener {
public:
    /// `page` is the name of a page, such as "Categories.html".
    virtual void showHelpPage(const QString& page) = 0;

protected:
    ~CVHelpOpener() = default;
};
