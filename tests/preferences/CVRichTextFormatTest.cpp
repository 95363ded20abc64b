#include "preferences/CVRichTextFormat.h"

#include "kit/Printers.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

/// The text without its styles; null when the bytes are no rich text.
QString plain(const QByteArray& bytes) {
    const auto runs = CVReadRichText(bytes);
    if (!runs)
        return {};
    QString text("");
    for (const CVTextRun& run : *runs)
        text += run.text;
    return text;
}

TEST(CVRichTextFormat, ReadsTheCharactersOfADocument) {
    struct Row {
        QByteArray bytes;
        QString text;
    };
    const Row rows[] = {
        {"{\\rtf1}", ""},
        {"{\\rtf1\\ansi Hello.}", "Hello."},
        {"{\\rtf1 One\\par\nTwo\\line Three\\par}", "One\nTwo\nThree\n"},
        {"{\\rtf1 a\\tab b}", "a\tb"},
        {"{\\rtf1 no\r\nline\nends}", "nolineends"},
        {"{\\rtf1 \\\\ \\{ \\} \\~\\_}", QString::fromUtf8("\\ { } \u00A0\u2011")},
        {"{\\rtf1 \\'e9\\'80\\'93}", QString::fromUtf8("é€“")},
        {"{\\rtf1 \\u8364?\\u-10179?\\u-8694?.}", QString::fromUtf8("€\U0001F60A.")},
        {"{\\rtf1\\uc2 \\u8364EU.}", QString::fromUtf8("€.")},
        {"{\\rtf1\\uc0 \\u8364.}", QString::fromUtf8("€.")},
        {"{\\rtf1 {\\uc0 \\u8364}\\u8364?.}", QString::fromUtf8("€€.")},
        {"{\\rtf1 \\ldblquote a\\rdblquote  \\endash\\emdash\\bullet}", QString::fromUtf8("“a” –—•")},
        {"{\\rtf1{\\fonttbl{\\f0 Sans;}}{\\colortbl;\\red1;}{\\*\\generator X {deep};}text}", "text"},
        {"{\\rtf1 \\fs22\\cf1\\unknown12 text\\unknown}", "text"},
        {"{\\rtf1 <app_name> <sys>}", "<app_name> <sys>"},
        {"{\\rtf1 one} and what follows", "one"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(plain(row.bytes), row.text) << row.bytes.toStdString();
}

TEST(CVRichTextFormat, BoldTypeEndsWithItsGroup) {
    EXPECT_EQ(CVReadRichText("{\\rtf1 a{\\b b}c\\b d\\b0 e\\b f\\plain g}"),
              (QList<CVTextRun>{
                  {"a", false}, {"b", true}, {"c", false}, {"d", true}, {"e", false}, {"f", true}, {"g", false}}));
}

TEST(CVRichTextFormat, WhatIsNoRichTextOrBreaksOffIsRefused) {
    for (const char* const bytes : {"", "Hello.", "{", "{\\rtf", "{\\rtf1 text", "{\\rtf1 {\\b text}", "{\\rtf1 \\",
                                    "{\\rtf1 \\'", "{\\rtf1 \\u", "{\\rtf1 \\'e"})
        EXPECT_FALSE(CVReadRichText(bytes).has_value()) << bytes;
}

TEST(CVRichTextFormat, NoDamageOfADocumentCrashesIt) {
    QFile file(CORVELLA_SOURCE_DIR "/resources/SystemInfo.rtf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    ASSERT_TRUE(CVReadRichText(whole).has_value());
    for (qsizetype i = 0; i + 1 < whole.size(); ++i) {
        static_cast<void>(CVReadRichText(whole.left(i)));
        for (const char damage : {'\\', '{', '}', '\'', '\xff', '\0'}) {
            QByteArray damaged = whole;
            damaged[i] = damage;
            static_cast<void>(CVReadRichText(damaged));
        }
    }
}

} // namespace
