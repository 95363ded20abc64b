#include "importing/ofx/CVDecodeOFX.h"

#include "importing/ofx/CVReadOFX.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype kLongestHeader = 16'384;

/// What stands before the first element, or the beginning of the text where that is long.
QString headerOf(const QString& text) {
    const QString start = text.left(kLongestHeader);
    static const QRegularExpression root(QStringLiteral("<OFX\\s*>"), QRegularExpression::CaseInsensitiveOption);
    const auto match = root.match(start);
    return match.hasMatch() ? start.first(match.capturedStart()) : start;
}

/// The first characters, as far as they are those of ASCII.
QString startOf(QByteArray bytes) {
    const auto* const first = std::find_if(bytes.cbegin(), bytes.cend(), [](char c) { return c > ' ' && c < '\x7f'; });
    bytes = bytes.mid(first - bytes.cbegin(), kLongestHeader);
    bytes.removeIf([](char c) { return c == '\0'; });
    return QString::fromLatin1(bytes).toUpper();
}

QString capturedIn(const QString& header, const char* pattern) {
    const QRegularExpression form(QLatin1String(pattern), QRegularExpression::CaseInsensitiveOption);
    return form.match(header).captured(1);
}

/// "102" as people say it: "1.0.2"
QString versionIn(const QString& header) {
    const QString digits = capturedIn(header, "VERSION\\s*[:=]\\s*[\"']?([12]\\d\\d)(?!\\d)");
    if (digits.isEmpty())
        return {};
    const QString minor = digits.endsWith(u'0') ? QString() : QString(u'.' + digits.back());
    return digits.first(1) + u'.' + digits.at(1) + minor;
}

struct Charset {
    const char* name;
    const char* encoding;
};
/// Latin 1 is read as Windows-1252, which has more characters and the same otherwise.
constexpr std::array<Charset, 12> kCharsets{{{"8859-1", "windows-1252"},
                                             {"ISO-8859-1", "windows-1252"},
                                             {"8859-15", "ISO-8859-15"},
                                             {"1252", "windows-1252"},
                                             {"1250", "windows-1250"},
                                             {"1251", "windows-1251"},
                                             {"1253", "windows-1253"},
                                             {"1254", "windows-1254"},
                                             {"1255", "windows-1255"},
                                             {"1256", "windows-1256"},
                                             {"1257", "windows-1257"},
                                             {"932", "Shift_JIS"}}};

/// The encoding that the header names; empty where it names none.
QByteArray encodingIn(const QString& header) {
    const QString named = capturedIn(header, "\\bencoding\\s*=\\s*[\"']([\\w-]+)[\"']");
    const QString charset =
        named.isEmpty() ? capturedIn(header, "CHARSET\\s*:\\s*((?:ISO-?)?8859-\\d{1,2}|(?:windows-|cp)?\\d{3,4})")
                        : named;
    QString plain = charset.toUpper();
    plain.remove(QStringLiteral("WINDOWS-")).remove(QStringLiteral("CP"));
    const auto* const found = std::find_if(kCharsets.begin(), kCharsets.end(),
                                           [&](const Charset& each) { return plain == QLatin1String(each.name); });
    if (found != kCharsets.end())
        return found->encoding;
    return plain.startsWith(u"8859") ? "ISO-" + plain.toLatin1() : charset.toLatin1();
}

bool isUnicode(const QByteArray& encoding) {
    return encoding.startsWith("UTF");
}

} // namespace

bool CVIsOFX(const QByteArray& bytes) {
    const QString start = startOf(bytes);
    if (start.startsWith(u"OFXHEADER") || start.startsWith(u"<OFX>") || start.startsWith(u"<?OFX"))
        return true;
    for (const auto* const first : {"<SIGNONMSGSRSV", "<BANKMSGSRSV", "<CREDITCARDMSGSRSV", "<INVSTMTMSGSRSV",
                                    "<STMTTRN", "<CCSTMTTRN", "<STMTRS>", "<CCSTMTRS>", "<BANKTRANLIST>"}) {
        if (start.startsWith(QLatin1String(first)))
            return true;
    }
    static const QRegularExpression form(QStringLiteral("<OFX[\\s>]|<\\?OFX\\s"));
    const auto root = start.indexOf(form);
    const QString before = start.left(std::max(root, qsizetype{0}));
    return root > 0 && (before.startsWith(u'<') || before.contains(u"OFXHEADER") || before.contains(u"OFXSGML"));
}

CVOFXText CVDecodeOFX(const QByteArray& bytes, const std::optional<QByteArray>& encoding) {
    CVOFXText text;
    text.decoded = CVDecodeStatement(bytes, encoding);
    const QString header = headerOf(text.decoded.text);
    const QByteArray named = encodingIn(header);
    const bool isSure = encoding || isUnicode(text.decoded.encoding) || isUnicode(named.toUpper());
    if (!isSure && !named.isEmpty() && text.decoded.problem.isEmpty()) {
        CVStatementText asNamed = CVDecodeStatement(bytes, named);
        if (asNamed.problem.isEmpty())
            text.decoded = std::move(asNamed);
    }
    text.version = versionIn(header);
    text.isTree = header.contains(u"<?xml", Qt::CaseInsensitive) || header.contains(u"<?OFX", Qt::CaseInsensitive);
    return text;
}
