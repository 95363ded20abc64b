#include "importing/camt/CVCAMTText.h"

#include "importing/statements/CVStatementText.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>

namespace {

struct CAMTTextText {
    Q_DECLARE_TR_FUNCTIONS(CVCAMTText)
};

/// The encoding that the message declares; absent where it declares none that is known.
std::optional<QByteArray> declaredEncoding(const QByteArray& bytes) {
    constexpr qsizetype kDeclaration = 512;
    static const QRegularExpression form(
        QStringLiteral("^<\\?xml[^>]*?encoding\\s*=\\s*[\"']([A-Za-z][A-Za-z0-9._-]*)[\"']"));
    const auto match = form.match(QString::fromLatin1(CVStartOfCAMT(bytes, kDeclaration)));
    if (!match.hasMatch())
        return std::nullopt;
    const QByteArray declared = match.captured(1).toLatin1();
    const auto& all = CVEncodingsOfStatements();
    const auto known = std::find_if(all.begin(), all.end(), [&declared](const QByteArray& encoding) {
        return encoding.compare(declared, Qt::CaseInsensitive) == 0;
    });
    // Two bytes for a letter show themselves, and Latin 1 is a part of what Windows makes of it.
    if (declared.toUpper().startsWith("UTF-16"))
        return std::nullopt;
    if (declared.compare("ISO-8859-1", Qt::CaseInsensitive) == 0)
        return QByteArray("windows-1252");
    return known == all.end() ? declared : *known;
}

/// Whether a tag has so many attributes that libxml2, which compares each with all before it, takes for ever.
bool hasAbsurdTag(const QByteArray& utf8) {
    constexpr int kMostAttributes = 100;
    int attributes = 0;
    bool isBehindEqual = false;
    for (const char c : utf8) {
        if (c == '<')
            attributes = 0;
        const bool isBlank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        if (isBehindEqual && (c == '"' || c == '\'') && ++attributes > kMostAttributes)
            return true;
        isBehindEqual = c == '=' || (isBehindEqual && isBlank);
    }
    return false;
}

} // namespace

QByteArray CVStartOfCAMT(const QByteArray& bytes, qsizetype most) {
    QByteArray start = bytes.first(std::min(bytes.size(), most));
    // In UTF-16 each of the letters that matter has a NUL beside it.
    start.removeIf([](char c) { return c == '\0'; });
    for (const auto* const mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
        if (start.startsWith(mark))
            start.remove(0, static_cast<qsizetype>(qstrlen(mark)));
    }
    return start.trimmed();
}

CVCAMTText CVDecodeCAMT(const QByteArray& bytes, const std::optional<QByteArray>& encoding) {
    const auto declared = encoding ? std::nullopt : declaredEncoding(bytes);
    CVStatementText text = CVDecodeStatement(bytes, encoding ? encoding : declared);
    // Some banks declare another encoding than the one in which they write.
    if (!text.problem.isEmpty() && declared)
        text = CVDecodeStatement(bytes, std::nullopt);
    if (!text.problem.isEmpty())
        return {{}, {}, text.problem};
    CVCAMTText message{text.text.trimmed().toUtf8(), text.encoding, {}};
    if (hasAbsurdTag(message.utf8))
        return {{}, {}, CAMTTextText::tr("This is no statement: one of its tags has more than 100 attributes.")};
    return message;
}
