#include "base/QBPropertyList.h"

#include "kit/Printers.h"

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <cstdlib>
#include <memory>

namespace {

constexpr const char* kHead = R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)";

QVariant fromXML(const QByteArray& item) {
    return QBPropertyListFromData(kHead + item + "</plist>");
}

struct PlistDeleter {
    void operator()(void* node) const { plist_free(node); }
};
using Plist = std::unique_ptr<void, PlistDeleter>;

QByteArray binary(const Plist& root) {
    char* bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(root.get(), &bytes, &length);
    QByteArray copy(bytes, static_cast<qsizetype>(length));
    plist_to_bin_free(bytes);
    return copy;
}

/// The reply of an update check, with one item of each kind.
Plist sample() {
    Plist root(plist_new_dict());
    plist_t release = plist_new_dict();
    plist_dict_set_item(release, "Version", plist_new_string("1.2 \xC3\xA9"));
    plist_dict_set_item(release, "Build", plist_new_uint(18'000'000'000'000'000'000ULL));
    plist_dict_set_item(release, "Price", plist_new_real(-0.25));
    plist_dict_set_item(release, "Free", plist_new_bool(1));
    plist_dict_set_item(release, "Paid", plist_new_bool(0));
    plist_dict_set_item(release, "Key", plist_new_data("\0\xFF<", 3));
    plist_dict_set_item(release, "Day", plist_new_date(0, 0));
    plist_dict_set_item(root.get(), "Release", release);
    plist_t list = plist_new_array();
    plist_array_append_item(list, plist_new_string("a"));
    plist_array_append_item(list, plist_new_array());
    plist_array_append_item(list, plist_new_string(""));
    plist_dict_set_item(root.get(), "List", list);
    return root;
}

void expectSample(const QVariant& value) {
    ASSERT_EQ(value.typeId(), QMetaType::QVariantMap);
    const QVariantMap root = value.toMap();
    EXPECT_EQ(root.keys(), QStringList({"List", "Release"}));
    const QVariantMap release = root["Release"].toMap();
    EXPECT_EQ(release.size(), 7);
    EXPECT_EQ(release["Version"], QVariant(QStringLiteral("1.2 é")));
    EXPECT_EQ(release["Build"], QVariant::fromValue<qulonglong>(18'000'000'000'000'000'000ULL));
    EXPECT_EQ(release["Price"], QVariant(-0.25));
    EXPECT_EQ(release["Free"], QVariant(true));
    EXPECT_EQ(release["Paid"], QVariant(false));
    EXPECT_EQ(release["Key"], QVariant(QByteArray("\0\xFF<", 3)));
    EXPECT_TRUE(release.contains("Day"));
    EXPECT_FALSE(release["Day"].isValid());
    EXPECT_EQ(root["List"], QVariant(QVariantList({"a", QVariantList(), ""})));
}

TEST(QBPropertyList, ReadsABinaryList) {
    const QByteArray bytes = binary(sample());
    ASSERT_TRUE(bytes.startsWith("bplist00"));
    expectSample(QBPropertyListFromData(bytes));
}

TEST(QBPropertyList, ReadsAnXMLList) {
    char* text = nullptr;
    uint32_t length = 0;
    plist_to_xml(sample().get(), &text, &length);
    const QByteArray bytes(text, static_cast<qsizetype>(length));
    plist_to_xml_free(text);
    ASSERT_TRUE(bytes.startsWith("<?xml"));
    expectSample(QBPropertyListFromData(bytes));
}

struct ValueRow {
    const char* xml;
    QVariant value;
};

const ValueRow kValues[]{
    {"<string>a &amp; b</string>", QStringLiteral("a & b")},
    {"<string></string>", QString(QLatin1String(""))},
    {"<integer>42</integer>", QVariant::fromValue<qulonglong>(42)},
    {"<real>1.5</real>", 1.5},
    {"<true/>", true},
    {"<false/>", false},
    {"<data>AAH/</data>", QByteArray("\0\x01\xFF", 3)},
    {"<array></array>", QVariantList()},
    {"<dict></dict>", QVariantMap()},
    {"<array><string>x</string><true/></array>", QVariantList({"x", true})},
    {"<dict><key>k</key><array><integer>1</integer></array></dict>",
     QVariantMap({{"k", QVariantList({QVariant::fromValue<qulonglong>(1)})}})},
};

TEST(QBPropertyList, ReadsEachKindOfItem) {
    for (const ValueRow& row : kValues)
        EXPECT_EQ(fromXML(row.xml), row.value) << row.xml;
}

TEST(QBPropertyList, IsInvalidForWhatIsNoPropertyList) {
    const QByteArray garbage[]{"",
                               "\0",
                               "hello",
                               "<html><body>404</body></html>",
                               "<?xml version=\"1.0\"?>",
                               "<?xml version=\"1.0\"?><CorvellaDocument/>",
                               QByteArray(kHead) + "<array><string>x</string>",
                               QByteArray(kHead) + "<nonsense/></plist>",
                               "bplist00",
                               "bplist00 with nothing after it that makes sense at all....",
                               QByteArray(1000, '\xFF')};
    for (const QByteArray& bytes : garbage)
        EXPECT_FALSE(QBPropertyListFromData(bytes).isValid()) << bytes.constData();
}

TEST(QBPropertyList, SurvivesABinaryListCutOrChangedAnywhere) {
    const QByteArray whole = binary(sample());
    int read = 0;
    for (qsizetype i = 0; i < whole.size(); ++i) {
        read += QBPropertyListFromData(whole.first(i)).isValid() ? 1 : 0;
        for (const char bits : {'\x01', '\x80', '\xFF'}) {
            QByteArray changed = whole;
            changed[i] = static_cast<char>(changed[i] ^ bits);
            (void)QBPropertyListFromData(changed);
        }
    }
    EXPECT_EQ(read, 0) << "a list without its end was taken for a whole one";
}

// A death test, because the failure would be a stack overflow.
TEST(QBPropertyListDeathTest, SurvivesListsWithinListsWithoutEnd) {
    for (const qsizetype depth : {100'000, 1'000'000}) {
        const QByteArray bytes =
            kHead + QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth) + "</plist>";
        const auto read = [&bytes] {
            (void)QBPropertyListFromData(bytes);
            std::_Exit(0);
        };
        EXPECT_EXIT(read(), testing::ExitedWithCode(0), "") << depth;
    }
}

} // namespace
