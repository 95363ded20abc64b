#include "importing/ofx/CVReadOFXTree.h"

#include "importing/ofx/CVOFXBuilder.h"

#include <QCoreApplication>
#include <QStringEncoder>

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>

namespace {

constexpr qsizetype kPiece = 65'536;
/// libxml2 compares each attribute of an element with all before it.
constexpr qsizetype kLongestOpening = 4096;
constexpr int kMostAttributes = 16;
constexpr int kPermille = 1000;

struct ReadOFXTreeText {
    Q_DECLARE_TR_FUNCTIONS(CVReadOFXTree)
};

struct FreeParser {
    void operator()(xmlParserCtxt* parser) const {
        xmlFreeDoc(parser->myDoc);
        xmlFreeParserCtxt(parser);
    }
};

/// Whether libxml2 could take long over one of the tags.
bool hasLongTag(QStringView text) {
    qsizetype close = 0;
    for (auto at = text.indexOf(u'<'); at >= 0; at = text.indexOf(u'<', at + 1)) {
        if (close < at)
            close = text.indexOf(u'>', at);
        if (close < 0)
            close = text.size();
        const bool isTag = at + 1 < text.size() && text[at + 1] != u'!' && text[at + 1] != u'?';
        if (isTag && close - at > kLongestOpening)
            return true;
    }
    return false;
}

/// The text behind the declaration, which may name an encoding that it is no longer in.
QStringView withoutDeclaration(QStringView text) {
    const auto begin = text.indexOf(u"<?xml ");
    const auto end = begin < 0 ? -1 : text.indexOf(u"?>", begin);
    return end < 0 ? text : text.sliced(end + 2);
}

/// libxml2 gets it as the data of its callbacks. No exception leaves them.
class TreeReader {
public:
    TreeReader(QStringView text, const CVStopRequested& stop)
        : mText(withoutDeclaration(text))
        , mStop(stop)
        , mLinesBefore(static_cast<int>(text.first(text.size() - mText.size()).count(u'\n'))) {}

    std::optional<CVOFXContents> read() {
        xmlSAXHandler handler = makeHandler();
        // libxml2 complains of some texts to standard error, past the parser.
        xmlSetGenericErrorFunc(nullptr, dropError);
        const std::unique_ptr<xmlParserCtxt, FreeParser> parser(
            xmlCreateIOParserCtxt(&handler, this, readPiece, nullptr, this, XML_CHAR_ENCODING_UTF8));
        mParser = parser.get();
        if (mParser)
            xmlParseDocument(mParser);
        const bool isRead = mParser && mParser->wellFormed && !mGaveUp;
        const int lines = line();
        mParser = nullptr;
        xmlSetGenericErrorFunc(nullptr, nullptr);
        if (mBuilder.isFull() || isRead)
            return mBuilder.finish(lines);
        return std::nullopt;
    }

private:
    [[nodiscard]] int line() const { return mLinesBefore + (mParser && mParser->input ? mParser->input->line : 1); }

    template <typename Action>
    static void run(void* context, Action action) noexcept {
        auto& reader = *static_cast<TreeReader*>(context);
        if (reader.mGaveUp)
            return;
        try {
            action(reader);
        } catch (const std::exception&) {
            reader.mGaveUp = true;
        }
        reader.mGaveUp = reader.mGaveUp || reader.mBuilder.isFull();
    }

    /// As `run`, of the callbacks in which libxml2 lets itself be stopped; while it reads a piece, it does not.
    template <typename Action>
    static void runOrStop(void* context, Action action) noexcept {
        run(context, action);
        auto& reader = *static_cast<TreeReader*>(context);
        if (reader.mGaveUp && reader.mParser)
            xmlStopParser(reader.mParser);
    }

    /// libxml2 takes a short piece for the end.
    void fill(qsizetype size) {
        while (mEncoded.size() < size && mDone < mText.size()) {
            const QStringView piece = mText.sliced(mDone, std::min(kPiece, mText.size() - mDone));
            mEncoded += mEncode(piece);
            mDone += piece.size();
        }
        mGaveUp = mStop && mStop(static_cast<int>(mDone * kPermille / std::max(mText.size(), qsizetype{1})));
    }

    static int readPiece(void* context, char* buffer, int size) noexcept {
        int count = 0;
        run(context, [&](TreeReader& reader) {
            reader.fill(size);
            count = static_cast<int>(std::min(reader.mEncoded.size(), qsizetype{size}));
            std::memcpy(buffer, reader.mEncoded.constData(), static_cast<std::size_t>(count));
            reader.mEncoded.remove(0, count);
        });
        return count;
    }

    static CVOFXTag tagOf(const xmlChar* name) {
        const QString whole = QString::fromUtf8(reinterpret_cast<const char*>(name)).toUpper();
        return CVOFXTagOf(QStringView(whole).sliced(whole.lastIndexOf(u':') + 1));
    }

    void giveText() {
        mBuilder.take(mCharacters, line());
        mCharacters.clear();
    }

    static void beginElement(void* context, const xmlChar* name, const xmlChar** attributes) {
        runOrStop(context, [=](TreeReader& reader) {
            int count = 0;
            while (attributes && attributes[count] && count <= 2 * kMostAttributes)
                ++count;
            reader.mGaveUp = count > 2 * kMostAttributes;
            reader.giveText();
            reader.mBuilder.begin(tagOf(name), reader.line());
        });
    }

    static void endElement(void* context, const xmlChar* name) {
        runOrStop(context, [=](TreeReader& reader) {
            reader.giveText();
            reader.mBuilder.end(tagOf(name));
        });
    }

    static void takeCharacters(void* context, const xmlChar* characters, int length) {
        runOrStop(context, [=](TreeReader& reader) {
            reader.mCharacters += QString::fromUtf8(reinterpret_cast<const char*>(characters), length);
        });
    }

    static void refuseEntity(void* context, const xmlChar* /*name*/, int /*type*/, const xmlChar* /*publicID*/,
                             const xmlChar* /*systemID*/, xmlChar* /*content*/) {
        runOrStop(context, [](TreeReader& reader) {
            reader.mBuilder.refuse(
                ReadOFXTreeText::tr("This is no statement that a bank hands out: the file defines abbreviations."));
        });
    }

    /// What stands for an abbreviation of another file would be lost.
    static void giveUp(void* context, const xmlChar* /*name*/) {
        runOrStop(context, [](TreeReader& reader) { reader.mGaveUp = true; });
    }

    static xmlEntityPtr predefinedEntity(void* /*context*/, const xmlChar* name) {
        return xmlGetPredefinedEntity(name);
    }

    static void dropError(void* /*context*/, const char* /*format*/, ...) {}

    /// libxml2 would go through the rest for further errors. It comes to the end of the piece that it has.
    static void noteError(void* context, const char* /*format*/, ...) {
        static_cast<TreeReader*>(context)->mGaveUp = true;
    }

    static xmlSAXHandler makeHandler() {
        xmlSAXHandler handler{};
        handler.error = noteError;
        handler.getEntity = predefinedEntity;
        handler.reference = giveUp;
        handler.entityDecl = refuseEntity;
        handler.startElement = beginElement;
        handler.endElement = endElement;
        handler.characters = takeCharacters;
        // Not XML_SAX2_MAGIC, with which libxml2 would ignore these callbacks.
        handler.initialized = 1;
        return handler;
    }

    QStringView mText;
    const CVStopRequested& mStop;
    /// The lines before the text.
    int mLinesBefore = 0;
    qsizetype mDone = 0;
    QByteArray mEncoded;
    QStringEncoder mEncode{QStringEncoder::Utf8};
    QString mCharacters;
    CVOFXBuilder mBuilder;
    xmlParserCtxt* mParser = nullptr;
    bool mGaveUp = false;
};

} // namespace

std::optional<CVOFXContents> CVReadOFXTree(const QString& text, const CVStopRequested& stop) {
    return hasLongTag(text) ? std::nullopt : TreeReader(text, stop).read();
}
