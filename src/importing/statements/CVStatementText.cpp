#include "importing/statements/CVStatementText.h"

#include "importing/statements/CVHeadingWords.h"

#include <QCoreApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace {

constexpr const char* kUtf8 = "UTF-8";
constexpr qsizetype kTextSample = 16384;

struct StatementTextText {
    Q_DECLARE_TR_FUNCTIONS(CVStatementText)
};

struct Mark {
    const char* bytes;
    const char* encoding;
};
constexpr std::array<Mark, 3> kMarks{{{"\xEF\xBB\xBF", "UTF-8"}, {"\xFF\xFE", "UTF-16LE"}, {"\xFE\xFF", "UTF-16BE"}}};

struct CodePage {
    QLocale::Language language;
    const char* encoding;
};
/// The code pages that are usual where these languages are written; elsewhere it is Windows-1252.
constexpr std::array<CodePage, 24> kCodePages{
    {{QLocale::Polish, "windows-1250"},     {QLocale::Czech, "windows-1250"},
     {QLocale::Slovak, "windows-1250"},     {QLocale::Hungarian, "windows-1250"},
     {QLocale::Slovenian, "windows-1250"},  {QLocale::Croatian, "windows-1250"},
     {QLocale::Bosnian, "windows-1250"},    {QLocale::Romanian, "windows-1250"},
     {QLocale::Albanian, "windows-1250"},   {QLocale::Russian, "windows-1251"},
     {QLocale::Ukrainian, "windows-1251"},  {QLocale::Bulgarian, "windows-1251"},
     {QLocale::Serbian, "windows-1251"},    {QLocale::Macedonian, "windows-1251"},
     {QLocale::Belarusian, "windows-1251"}, {QLocale::Greek, "windows-1253"},
     {QLocale::Turkish, "windows-1254"},    {QLocale::Hebrew, "windows-1255"},
     {QLocale::Arabic, "windows-1256"},     {QLocale::Estonian, "windows-1257"},
     {QLocale::Latvian, "windows-1257"},    {QLocale::Lithuanian, "windows-1257"},
     {QLocale::Japanese, "Shift_JIS"},      {QLocale::Chinese, "GB18030"}}};

QByteArray encodingOfLocale() {
    const auto language = QLocale::system().language();
    const auto* const found = std::find_if(kCodePages.begin(), kCodePages.end(),
                                           [language](const CodePage& page) { return page.language == language; });
    return found == kCodePages.end() ? "windows-1252" : found->encoding;
}

/// The text; absent where the bytes are not in that encoding.
std::optional<QString> decoded(QByteArrayView bytes, const QByteArray& encoding) {
    QStringDecoder decoder(encoding.constData());
    if (!decoder.isValid())
        return std::nullopt;
    QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

/// UTF-16 without a mark: its Latin letters have a NUL on one side.
QByteArray encodingByNuls(QByteArrayView bytes) {
    const QByteArrayView sample = bytes.first(std::min(bytes.size(), kTextSample));
    std::array<qsizetype, 2> nuls{};
    for (qsizetype at = 0; at < sample.size(); ++at)
        nuls[static_cast<std::size_t>(at % 2)] += sample[at] == '\0' ? 1 : 0;
    const qsizetype many = sample.size() / 5;
    const qsizetype few = sample.size() / 50;
    if (sample.size() < 4)
        return {};
    if (nuls[1] > many && nuls[0] <= few)
        return "UTF-16LE";
    return nuls[0] > many && nuls[1] <= few ? "UTF-16BE" : "";
}

/// How many of the first cells that tell one encoding from another are known headings.
int countOfHeadings(const QString& text) {
    static const QRegularExpression between(QStringLiteral("[;,\\t|\"\\r\\n]+"));
    int count = 0;
    const QStringList cells = text.first(std::min(text.size(), kTextSample / 4)).split(between, Qt::SkipEmptyParts);
    for (const QString& cell : cells) {
        const bool isTelling = std::any_of(cell.begin(), cell.end(), [](QChar c) { return c.unicode() > u'~'; });
        count += isTelling && CVHeadingOf(cell).role != CVColumnRole::Guessed ? 1 : 0;
    }
    return count;
}

/// How many signs that are no letters, such as a superscript or a turned question mark, stand between two letters.
int countOfSignsInWords(const QString& text) {
    int count = 0;
    for (qsizetype at = 1; at + 1 < text.size(); ++at) {
        const QChar c = text.at(at);
        const bool isSign = c.unicode() > u'~' && !c.isLetter() && !c.isMark() && !c.isSpace() && c.unicode() < 0x2000;
        count += isSign && text.at(at - 1).isLetter() && text.at(at + 1).isLetter() ? 1 : 0;
    }
    return count;
}

/// Of the encodings in which the most headings are known the first, or the first code page in which the fewest signs
/// stand in words.
QByteArray encodingByHeadings(QByteArrayView bytes) {
    QByteArrayList candidates{encodingOfLocale(), "windows-1252"};
    candidates += CVEncodingsOfStatements();
    QByteArray best = candidates.constFirst();
    int most = -1;
    int fewestSigns = 0;
    const QByteArrayView sample = bytes.first(std::min(bytes.size(), kTextSample));
    for (const QByteArray& encoding : std::as_const(candidates)) {
        // The sample may end within a character, so that only the whole can be wrong.
        QStringDecoder decoder(encoding.constData());
        const QString text = decoder.isValid() ? QString(decoder.decode(sample)) : QString();
        const int count = decoder.isValid() && !encoding.startsWith("UTF") ? countOfHeadings(text) : -1;
        // Nearly all bytes are letters in the encodings of the Far East, so that their words tell nothing.
        const bool isOfOneByte = encoding.startsWith("windows") || encoding.startsWith("ISO");
        const int signsHere = isOfOneByte && count >= most ? countOfSignsInWords(text) : 0;
        const bool isBetter = count > most || (count == most && isOfOneByte && signsHere < fewestSigns);
        if (isBetter && decoded(bytes, encoding)) {
            most = count;
            fewestSigns = signsHere;
            best = encoding;
        }
    }
    return best;
}

/// What a file of another kind begins with, and what to do about it.
QString otherKind(const QByteArray& bytes) {
    const QByteArray start = bytes.first(std::min(bytes.size(), qsizetype{512})).trimmed();
    if (start.startsWith("%PDF"))
        return StatementTextText::tr(
            "This is a PDF file, which holds no lines to read. Please have your bank export the "
            "statement as CSV.");
    if (start.startsWith("PK\x03\x04") || start.startsWith("\xD0\xCF\x11\xE0"))
        return StatementTextText::tr(
            "This is a file of a spreadsheet program. Please save it there as CSV and import that.");
    return {};
}

/// Whether the text has characters that no statement has.
bool isBinary(const QString& text) {
    qsizetype controls = 0;
    for (const QChar character : text) {
        const bool isBlank = character == u'\t' || character == u'\r' || character == u'\n' || character == u'\f';
        if (character.isNull())
            return true;
        controls += !isBlank && character.unicode() < u' ' ? 1 : 0;
    }
    return controls > 3 + text.size() / 100;
}

CVStatementText refusal(const QString& problem) {
    return {{}, {}, problem};
}

/// The encoding, and the bytes without the mark.
QByteArray encodingOf(QByteArrayView& bytes, const std::optional<QByteArray>& chosen) {
    for (const auto& [mark, encoding] : kMarks) {
        if (bytes.startsWith(QByteArrayView(mark))) {
            bytes = bytes.sliced(QByteArrayView(mark).size());
            return encoding;
        }
    }
    if (chosen)
        return *chosen;
    if (QByteArray wide = encodingByNuls(bytes); !wide.isEmpty())
        return wide;
    return decoded(bytes, kUtf8) ? QByteArray(kUtf8) : encodingByHeadings(bytes);
}

} // namespace

const QByteArrayList& CVEncodingsOfStatements() {
    static const QByteArrayList all{"UTF-8",        "windows-1252", "ISO-8859-15",  "windows-1250",
                                    "windows-1251", "windows-1253", "windows-1254", "windows-1255",
                                    "windows-1256", "windows-1257", "Shift_JIS",    "GB18030",
                                    "Big5",         "EUC-KR",       "UTF-16LE",     "UTF-16BE"};
    return all;
}

CVStatementText CVDecodeStatement(const QByteArray& bytes, const std::optional<QByteArray>& encoding) {
    if (const QString other = otherKind(bytes); !other.isEmpty())
        return refusal(other);
    QByteArrayView view(bytes);
    // Old programs end a text with a control character or fill it up.
    while (!view.isEmpty() && (view.back() == '\x1a' || (view.back() == '\0' && view.size() % 2 == 1)))
        view.chop(1);
    CVStatementText statement;
    statement.encoding = encodingOf(view, encoding);
    const auto text = decoded(view, statement.encoding);
    if (!text) {
        return refusal(StatementTextText::tr("The file is not written in the encoding %1. Please choose another one.")
                           .arg(QString::fromLatin1(statement.encoding)));
    }
    statement.text = *text;
    if (isBinary(statement.text))
        return refusal(
            StatementTextText::tr("This is no statement: the file holds bytes that no text has. Please have your "
                                  "bank export it as CSV."));
    return statement;
}

QString CVProblemOfOtherKind(const QString& text) {
    const QStringView start = QStringView(text).first(std::min(text.size(), kTextSample)).trimmed();
    const bool isMarkedUp = start.startsWith(u"<?xml") || start.startsWith(u"<OFX", Qt::CaseInsensitive) ||
                            start.startsWith(u"OFXHEADER", Qt::CaseInsensitive) || start.startsWith(u"<Document") ||
                            start.contains(u"<OFX>", Qt::CaseInsensitive);
    const bool isTagged = start.startsWith(u"!Type:", Qt::CaseInsensitive) || start.startsWith(u"!Account") ||
                          start.startsWith(u"!Option") || start.startsWith(u":20:") || start.startsWith(u"{1:F01");
    if (!isMarkedUp && !isTagged)
        return {};
    return StatementTextText::tr("Statements of this kind cannot be read yet. Please have your bank export it as CSV.");
}
