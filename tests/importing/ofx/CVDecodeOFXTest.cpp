#include "importing/ofx/CVDecodeOFX.h"

#include "importing/ofx/CVReadOFX.h"
#include "kit/Printers.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

#include <vector>

namespace {

QByteArray inEncoding(const char* encoding, const QString& text) {
    QStringEncoder encoder(encoding);
    return encoder.encode(text);
}

TEST(CVDecodeOFX, KnowsTheKindByItsBeginning) {
    for (const char* text : {"OFXHEADER:100\n<OFX>", "\n\n\t OFXHEADER:100 DATA:OFXSGML", "<OFX><A>", "<ofx>\n",
                             "DATA:OFXSGML\nOFXHEADER:100\n\n<OFX>\n", "<?xml version=\"1.0\"?>\n<!-- x --><OFX>",
                             "<?OFX OFXHEADER=\"200\"?><OFX>", "\xEF\xBB\xBFOFXHEADER:100\n", "<STMTTRNRS><STMTRS>",
                             "Content-Type: application/x-ofx\n\nOFXHEADER:100\n<OFX>"})
        EXPECT_TRUE(CVIsOFX(text)) << text;
    EXPECT_TRUE(CVIsOFX(inEncoding("UTF-16LE", QStringLiteral("OFXHEADER:100\n<OFX>"))));
    for (const char* text : {"", "Date,Payee,Amount\n2024-03-01,<OFX>,1.00\n", "!Type:Bank\n", "<Document><OFX2/>",
                             "<?xml version=\"1.0\"?><Document/>", "Date,OFXHEADER\n"})
        EXPECT_FALSE(CVIsOFX(text)) << text;
}

struct EncodedRow {
    const char* header;
    const char* written;
    const char* read;
};

TEST(CVDecodeOFX, BelievesTheBytesBeforeTheHeader) {
    const QString text = QStringLiteral("<OFX><NAME>Zażółć ś");
    const std::vector<EncodedRow> rows{
        {"CHARSET:1252\n", "UTF-8", "UTF-8"},
        {"ENCODING:USASCII\nCHARSET:1250\n", "windows-1250", "windows-1250"},
        {"CHARSET:1250COMPRESSION:NONE\n", "windows-1250", "windows-1250"},
        {"CHARSET:8859-2\n", "ISO-8859-2", "ISO-8859-2"},
        {"<?xml version=\"1.0\" encoding=\"windows-1250\"?>", "windows-1250", "windows-1250"},
        {"<?xml version=\"1.0\" encoding=\"UTF-16\"?>", "UTF-8", "UTF-8"},
        {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "UTF-16LE", "UTF-16LE"}};
    for (const auto& [header, written, read] : rows) {
        const QString whole = QString::fromLatin1(header) + text;
        const CVOFXText decoded = CVDecodeOFX(inEncoding(written, whole), std::nullopt);
        EXPECT_EQ(decoded.decoded.encoding, QByteArray(read)) << header;
        EXPECT_EQ(decoded.decoded.text, whole) << header;
    }
    // As chosen.
    const QByteArray bytes = "CHARSET:1250\n<OFX>\xB3";
    EXPECT_TRUE(CVDecodeOFX(bytes, std::nullopt).decoded.text.endsWith(u'ł'));
    EXPECT_TRUE(CVDecodeOFX(bytes, QByteArray("windows-1252")).decoded.text.endsWith(u'³'));
}

TEST(CVDecodeOFX, SaysTheVersionAsPeopleDo) {
    const auto version = [](const char* header) { return CVDecodeOFX(header, std::nullopt).version; };
    EXPECT_EQ(version("OFXHEADER:100\nVERSION:102\n<OFX>"), QStringLiteral("1.0.2"));
    EXPECT_EQ(version("OFXHEADER:100DATA:OFXSGMLVERSION:160SECURITY:NONE<OFX>"), QStringLiteral("1.6"));
    EXPECT_EQ(version("<?xml version=\"1.0\"?><?OFX OFXHEADER=\"200\" VERSION=\"211\"?><OFX>"),
              QStringLiteral("2.1.1"));
    EXPECT_EQ(version("<OFX>VERSION:102"), QString());
}

} // namespace
