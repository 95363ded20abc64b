#pragma once

#include "model/CVParsing.h"
#include "storage/CVPartlyRead.h"

#include <QCoreApplication>

#include <string_view>

/// Collects what is read only in part, and puts the first of it into words.
class CVPartlyNotes final {
    Q_DECLARE_TR_FUNCTIONS(CVPartlyNotes)

public:
    /// Notes something of an element or attribute of that name, in that line of the file. For an error the value is
    /// what the XML parser says.
    void add(CVPartly what, int line, std::string_view name, std::string_view value);

    [[nodiscard]] const CVPartlyRead& read() const { return mRead; }

private:
    [[nodiscard]] static QString sentence(CVPartly what, const QString& line, const QString& name,
                                          const QString& value);

    CVPartlyRead mRead;
};
