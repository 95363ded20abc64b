#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringDecoder>
#include <QStringView>

#include <optional>

/// What the bytes of a data file tell before they are parsed. Takes them in pieces of any size, in their order, and
/// answers for the bytes that it has been given.
class CVFileExamination final {
public:
    /// Whether a file is encrypted is told from these, and a file of fewer is none.
    static constexpr qsizetype kFewestBytes = 64;
    /// libxml2 compares each attribute of an element with all before it, so that one with many thousands would take
    /// hours. The data file has elements with four.
    static constexpr int kMostAttributes = 100;

    void add(QByteArrayView piece);

    [[nodiscard]] bool isTooShort() const { return mStart.size() < kFewestBytes; }
    [[nodiscard]] bool looksEncrypted() const;
    /// Anywhere in the text. In UTF-16, the halves of whose characters are full of them, only a whole character counts.
    [[nodiscard]] bool holdsNul() const { return mDecoder && !mIsPlain ? mHoldsNulCharacter : mHoldsNulByte; }
    /// libxml2 does not read that encoding, and takes the file for an empty one.
    [[nodiscard]] bool isUtf32() const { return mIsUtf32; }
    /// Whether a start tag has more than `kMostAttributes` attributes. What looks like one within a comment or a marked
    /// section is none. From the first of these places on, comments and sections are searched as well, because libxml2
    /// may take what stands in them for elements:
    /// - a document type or another declaration (`<!` that opens neither a comment nor a section, also one that breaks
    ///   off), because its quoted values may hold what looks like the start of a comment;
    /// - an instruction (`<?`, but for the declaration at the beginning of the file), because its text may hold that;
    /// - a less-than sign in the declaration, because the declaration ends there for libxml2 and the rest is markup;
    /// - in a comment or a section: a character that XML forbids (a control character, U+FFFE, U+FFFF, or bytes that
    /// are
    ///   no character), because libxml2 breaks off there and goes on behind it as outside of the comment;
    /// - in a comment or a section: more than 3,000,000 UTF-16 units, because libxml2 breaks off there likewise, at ten
    ///   million bytes.
    [[nodiscard]] bool hasAbsurdElement() const { return mHasAbsurdElement; }

private:
    enum class State {
        Text,
        /// Behind a less-than sign.
        Opened,
        /// Behind that and an exclamation mark.
        Marked,
        /// Behind both and the beginning of what opens a comment or a marked section.
        Matching,
        /// In the declaration at the beginning of the file.
        Declaration,
        Tag,
        /// In the value of an attribute.
        Quoted,
        /// In a comment or a marked section.
        Skipped
    };
    /// What is skipped, by the characters around it.
    struct Skippable {
        QStringView start;
        char16_t endMark = 0;
    };
    static const Skippable kComment;
    static const Skippable kSection;

    void read(QByteArrayView bytes);
    void readPart(QByteArrayView bytes);
    [[nodiscard]] qsizetype nextOfInterest(QByteArrayView bytes, qsizetype at);
    void readByte(char byte);
    void forgetCharacter();
    void readCharacter(char16_t c);
    void readOpening(char16_t c);
    void open(char16_t c);
    void readInTag(char16_t c);
    void readSkipped(char16_t c);
    void expect(const Skippable& skippable);
    void leaveOff();

    /// The first bytes, `kFewestBytes` at most.
    QByteArray mStart;
    bool mHoldsNulByte = false;
    bool mHoldsNulCharacter = false;
    bool mHasAbsurdElement = false;
    /// Absent until there are enough bytes to tell the encoding from.
    std::optional<QStringDecoder> mDecoder;
    /// Whether every byte below 128 is the character of that number.
    bool mIsPlain = false;
    bool mIsUtf32 = false;
    bool mWithinCharacter = false;

    State mState = State::Text;
    int mAttributes = 0;
    qsizetype mTagSize = 0;
    char16_t mQuote = 0;
    /// What is skipped or may be: of its start so many characters have been read, and of its end so many marks.
    const Skippable* mSkippable = nullptr;
    qsizetype mMatched = 0;
    qsizetype mMarks = 0;
    qsizetype mSkipped = 0;
    /// Nothing more is skipped behind what could hold the start of a comment that is none, or end one early: there an
    /// absurd element could hide.
    bool mMaySkip = true;
    /// Whether a less-than sign was met: what the first opens may be the declaration.
    bool mHasOpened = false;
};
