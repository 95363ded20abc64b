#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringDecoder>
#include <QStringList>
#include <QStringView>

#include <optional>

/// Examines the bytes of a data file before they are parsed. Takes the bytes in order in pieces of any size, and
/// answers for those that it has been given.
class CVFileExamination final {
public:
    /// The first bytes, which tell whether a file is encrypted; a shorter file is no data file.
    static constexpr qsizetype kFewestBytes = 64;
    /// libxml2 compares each attribute of an element with all before it, so that an element with many thousands of
    /// attributes would take hours. Elements of the data file have at most four.
    static constexpr int kMostAttributes = 100;

    void add(QByteArrayView piece);

    [[nodiscard]] bool isEmpty() const { return mStart.isEmpty(); }
    [[nodiscard]] bool isTooShort() const { return mStart.size() < kFewestBytes; }
    [[nodiscard]] bool looksEncrypted() const;
    /// Whether the text holds a NUL. In UTF-16, where half of a character is often a zero byte, only a whole character
    /// counts.
    [[nodiscard]] bool holdsNul() const { return mDecoder && !mIsPlain ? mHoldsNulCharacter : mHoldsNulByte; }
    /// libxml2 does not read UTF-32 and takes such a file for an empty one.
    [[nodiscard]] bool isUtf32() const { return mIsUtf32; }
    /// Whether a start tag has more than `kMostAttributes` attributes. Text that looks like a start tag does not count
    /// within a comment or a marked section. After any of the following it counts there too, because libxml2 may read
    /// it as an element:
    /// - a document type or another declaration (`<!` that opens neither a comment nor a section, even if it breaks
    ///   off): its quoted values may hold what looks like the start of a comment;
    /// - a processing instruction (`<?`, but not the declaration at the beginning of the file), for the same reason;
    /// - a less-than sign in the declaration: for libxml2 the declaration ends there;
    /// - a character that XML forbids in a comment or a section (a control character, U+FFFE, U+FFFF, or bytes that are
    ///   no character): libxml2 leaves the comment there;
    /// - more than 3,000,000 UTF-16 units in a comment or a section: libxml2 leaves it at ten million bytes.
    [[nodiscard]] bool hasAbsurdElement() const { return mHasAbsurdElement; }

    /// The comments that were found, which the parser passes over. Behind anything of which `hasAbsurdElement` speaks
    /// they are not found any more.
    [[nodiscard]] qint64 comments() const { return mComments; }
    /// The beginnings of the first of them.
    [[nodiscard]] const QStringList& firstComments() const { return mFirstComments; }

private:
    enum class State {
        Text,
        /// After a less-than sign.
        Opened,
        /// After a less-than sign and an exclamation mark.
        Marked,
        /// After both and a part of the characters that open a comment or a marked section.
        Matching,
        /// In the XML declaration at the beginning of the file.
        Declaration,
        Tag,
        /// In the value of an attribute.
        Quoted,
        /// In a comment or a marked section.
        Skipped
    };
    /// A comment or a marked section, described by the characters around it.
    struct Skippable {
        QStringView start;
        char16_t endMark = 0;
    };
    static const Skippable kComment;
    static const Skippable kSection;

    void read(QByteArrayView bytes);
    [[nodiscard]] qsizetype nextOfInterest(QByteArrayView bytes, qsizetype at);
    void readByte(char byte);
    void forgetCharacter();
    void readCharacter(char16_t c);
    void readOpening(char16_t c);
    void open(char16_t c);
    void readInTag(char16_t c);
    void beginSkipping();
    void readSkipped(char16_t c);
    void collectComment(char16_t c);
    void expect(const Skippable& skippable);
    void stopSkipping();

    /// The first bytes, `kFewestBytes` at most.
    QByteArray mStart;
    bool mHoldsNulByte = false;
    bool mHoldsNulCharacter = false;
    bool mHasAbsurdElement = false;
    /// Absent until there are enough bytes to tell the encoding.
    std::optional<QStringDecoder> mDecoder;
    /// Whether every byte below 128 is the character of that number, as in UTF-8.
    bool mIsPlain = false;
    bool mIsUtf32 = false;
    bool mWithinCharacter = false;

    State mState = State::Text;
    int mAttributes = 0;
    qsizetype mTagSize = 0;
    char16_t mQuote = 0;
    /// What is being skipped or may be; `mMatched` characters of its start and `mMarks` marks of its end have been
    /// read.
    const Skippable* mSkippable = nullptr;
    qsizetype mMatched = 0;
    qsizetype mMarks = 0;
    qsizetype mSkipped = 0;
    qint64 mComments = 0;
    QStringList mFirstComments;
    /// False after anything that could contain a false start of a comment or end one early. Nothing is skipped from
    /// there on, because an absurd element could hide in what is skipped.
    bool mMaySkip = true;
    /// Whether a less-than sign was met; only the first can open the XML declaration.
    bool mHasOpened = false;
};
