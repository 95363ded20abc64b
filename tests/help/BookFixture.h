#pragma once

#include "help/CVHelpBook.h"
#include "kit/Printers.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

/// The help book that the build has made.
class BookFixture : public testing::Test {
protected:
    static QString file() { return CVHelpBook::fileForProgramIn(CORVELLA_PROGRAM_FOLDER).value_or(QString()); }

    /// The names of the pages in the source folder.
    static QStringList pageNames() {
        return QDir(CORVELLA_SOURCE_DIR "/resources/help").entryList({"*.html"}, QDir::Files, QDir::Name);
    }

    [[nodiscard]] QString text(const QString& page) const {
        return QString::fromUtf8(mBook.bytesAt(QUrl(kFolder + page)));
    }

    /// The values of an attribute of all elements of that name.
    [[nodiscard]] QStringList values(const QString& page, const QString& element, const QString& attribute) const {
        const QRegularExpression pattern('<' + element + "\\b[^>]*\\b" + attribute + "=\"([^\"]*)\"");
        QStringList found;
        for (const auto& match : pattern.globalMatch(text(page)))
            found.append(match.captured(1));
        return found;
    }

    static constexpr QLatin1StringView kFolder{"qthelp://com.quenbylabs.corvella/book/"};
    CVHelpBook mBook{file()};
};
