#include "BookFixture.h"

#include <QHelpContentItem>
#include <QHelpContentModel>
#include <QHelpEngine>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <QImage>
#include <QTest>
#include <QXmlStreamReader>

#include <set>

namespace {

class HelpPages : public BookFixture {
protected:
    /// The pages of the contents below `item`, in their order.
    static QStringList pagesOf(const QHelpContentItem& item) {
        QStringList pages;
        for (int i = 0; i < item.childCount(); ++i) {
            const QString page = item.child(i)->url().fileName();
            if (!pages.contains(page))
                pages.append(page);
            for (const QString& below : pagesOf(*item.child(i))) {
                if (!pages.contains(below))
                    pages.append(below);
            }
        }
        return pages;
    }

    [[nodiscard]] const QHelpContentItem& contents() const {
        const QHelpContentModel& model = *mBook.engine().contentModel();
        EXPECT_TRUE(QTest::qWaitFor([&model] { return !model.isCreatingContents() && model.rowCount() > 0; }));
        return *model.contentItemAt(model.index(0, 0))->parent();
    }

    /// The addresses with fragments of `item` and all items below it.
    static QList<QUrl> addressesOf(const QHelpContentItem& item) {
        QList<QUrl> addresses;
        for (int i = 0; i < item.childCount(); ++i)
            addresses << item.child(i)->url() << addressesOf(*item.child(i));
        return addresses;
    }

    [[nodiscard]] QStringList keywords() const {
        const QHelpIndexModel& model = *mBook.engine().indexModel();
        EXPECT_TRUE(QTest::qWaitFor([&model] { return !model.isCreatingIndex() && model.rowCount() > 0; }));
        return model.stringList();
    }

    /// Whether a page contains the anchor of the address's fragment; without a fragment, whether the page exists.
    [[nodiscard]] bool exists(const QUrl& address) const {
        const QString page = address.fileName();
        const QString place = address.fragment();
        return !text(page).isEmpty() && (place.isEmpty() || values(page, "a", "name").contains(place));
    }
};

TEST_F(HelpPages, AreAllInTheBook) {
    ASSERT_GE(pageNames().size(), 12);
    for (const QString& page : pageNames())
        EXPECT_FALSE(text(page).isEmpty()) << page.toStdString();
}

TEST_F(HelpPages, AreWellFormedWithATitleThatIsTheirHeading) {
    for (const QString& page : pageNames()) {
        SCOPED_TRACE(page.toStdString());
        // The XML reader needs the document type removed and the void elements of HTML closed.
        QString closed = text(page).remove("<!DOCTYPE html>");
        closed.replace(QRegularExpression("<(meta|link|img|br)\\b([^>]*)>"), "<\\1\\2/>");
        QXmlStreamReader reader(closed);
        QString title;
        QString heading;
        while (!reader.atEnd()) {
            reader.readNext();
            if (reader.isStartElement() && reader.name() == QLatin1String("title"))
                title = reader.readElementText();
            else if (reader.isStartElement() && reader.name() == QLatin1String("h1"))
                heading = reader.readElementText();
        }
        EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << " in line " << reader.lineNumber();
        EXPECT_FALSE(title.isEmpty());
        EXPECT_EQ(title, heading);
    }
}

TEST_F(HelpPages, LinkOnlyToWhatIsThere) {
    int links = 0;
    for (const QString& page : pageNames()) {
        for (const QString& target : values(page, "a", "href")) {
            ++links;
            EXPECT_TRUE(exists(QUrl(kFolder + page).resolved(QUrl(target))))
                << page.toStdString() << " -> " << target.toStdString();
        }
    }
    EXPECT_GT(links, 40);
}

TEST_F(HelpPages, ShowOnlyPicturesThatAreThereWithATextForThoseWhoDoNotSeeThem) {
    std::set<QString> shown;
    for (const QString& page : pageNames()) {
        const QStringList pictures = values(page, "img", "src");
        EXPECT_EQ(values(page, "img", "alt").size(), pictures.size()) << page.toStdString();
        for (const QString& picture : pictures) {
            shown.insert(picture);
            const QByteArray bytes = mBook.bytesAt(QUrl(kFolder + picture));
            EXPECT_FALSE(QImage::fromData(bytes).isNull()) << page.toStdString() << " -> " << picture.toStdString();
            EXPECT_LT(bytes.size(), 60 * 1024) << picture.toStdString();
        }
    }
    for (const QString& picture : QDir(CORVELLA_SOURCE_DIR "/resources/help/images").entryList({"*.png"}))
        EXPECT_TRUE(shown.contains("images/" + picture)) << picture.toStdString() << " is shown nowhere";
}

TEST_F(HelpPages, UseNoColoursOfTheirOwn) {
    const QString sheet = QString::fromUtf8(mBook.bytesAt(QUrl(kFolder + QLatin1String("style.css"))));
    EXPECT_FALSE(sheet.isEmpty());
    const QRegularExpression colour("color|#[0-9a-fA-F]{3}");
    EXPECT_FALSE(sheet.contains(colour));
    for (const QString& page : pageNames()) {
        EXPECT_EQ(values(page, "link", "href"), QStringList{"style.css"}) << page.toStdString();
        EXPECT_EQ(values(page, "\\w+", "style"), QStringList()) << page.toStdString();
        EXPECT_EQ(values(page, "\\w+", "bgcolor"), QStringList()) << page.toStdString();
    }
}

TEST_F(HelpPages, AreAllInTheContents) {
    QStringList listed = pagesOf(contents());
    listed.sort();
    EXPECT_EQ(listed, pageNames());
    for (const QUrl& address : addressesOf(contents()))
        EXPECT_TRUE(exists(address)) << address.toString().toStdString();
}

TEST_F(HelpPages, AllHaveAnEntryInTheIndex) {
    std::set<QString> indexed;
    for (const QString& keyword : keywords()) {
        const QList<QHelpLink> links = mBook.engine().documentsForKeyword(keyword);
        EXPECT_EQ(links.size(), 1) << keyword.toStdString();
        for (const QHelpLink& link : links) {
            EXPECT_TRUE(exists(link.url)) << link.url.toString().toStdString();
            indexed.insert(link.url.fileName());
        }
    }
    for (const QString& page : pageNames())
        EXPECT_TRUE(indexed.contains(page)) << page.toStdString();
}

} // namespace
