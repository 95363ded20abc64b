#include "storage/CVFileExamination.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr QByteArrayView kEncryptedStart("<EncryptedData");
/// The bytes from which the encoding is told, as XML has it: by a byte order mark, or by the less-than sign that every
/// file begins with.
constexpr qsizetype kEncodingBytes = 4;
/// So many stay in the cache from one search to the next.
constexpr qsizetype kCachedBytes = 16384;
/// More than one byte completes, with what was wrong before it.
constexpr std::size_t kFromOneByte = 16;
/// One with too many attributes has at least so many characters: a blank, a letter, an equals sign and two quotes for
/// each of them.
constexpr qsizetype kShortestAbsurdElement = qsizetype(5) * CVFileExamination::kMostAttributes;
/// In UTF-16 units. libxml2 breaks off in the middle of a section of more than ten million bytes.
constexpr qsizetype kLongestSkipped = 3'000'000;
/// Of them and a greater-than sign is the end of what is skipped.
constexpr qsizetype kEndMarks = 2;

/// What no XML holds in any place: libxml2 breaks off what it was reading, and takes the rest for something else.
bool isForbidden(char16_t c) {
    const bool isControl = c < u' ' && c != u'\t' && c != u'\n' && c != u'\r';
    return isControl || c == QChar::ReplacementCharacter || c >= 0xFFFE;
}

} // namespace

const CVFileExamination::Skippable CVFileExamination::kComment{u"--", u'-'};
const CVFileExamination::Skippable CVFileExamination::kSection{u"[CDATA[", u']'};

void CVFileExamination::add(QByteArrayView piece) {
    if (isTooShort()) {
        const bool wasUndecided = mStart.size() < kEncodingBytes;
        const qsizetype known = mStart.size();
        mStart += piece.first(std::min(piece.size(), kFewestBytes - known));
        if (wasUndecided && mStart.size() >= kEncodingBytes) {
            const auto encoding = QStringConverter::encodingForData(mStart, u'<').value_or(QStringConverter::Utf8);
            mIsPlain = encoding == QStringConverter::Utf8;
            mIsUtf32 = encoding == QStringConverter::Utf32LE || encoding == QStringConverter::Utf32BE;
            mDecoder.emplace(encoding);
            read(QByteArrayView(mStart).first(known));
        }
    }
    read(piece);
}

bool CVFileExamination::looksEncrypted() const {
    return mStart.indexOf(kEncryptedStart) >= 0;
}

/// The search for NULs brings the bytes into the cache, in which the other searches find them.
void CVFileExamination::read(QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const QByteArrayView part = bytes.first(std::min(bytes.size(), kCachedBytes));
        bytes = bytes.sliced(part.size());
        mHoldsNulByte = mHoldsNulByte || part.contains('\0');
        if (mDecoder && !mHasAbsurdElement)
            readPart(part);
    }
}

void CVFileExamination::readPart(QByteArrayView bytes) {
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype next = mIsPlain ? nextOfInterest(bytes, at) : at;
        if (next == at) {
            readByte(bytes[at++]);
        } else {
            at = next;
            forgetCharacter();
        }
    }
}

/// Passes over what changes nothing; where that is nothing, the same position.
qsizetype CVFileExamination::nextOfInterest(QByteArrayView bytes, qsizetype at) {
    if (mState == State::Text) {
        const qsizetype opening = bytes.indexOf('<', at);
        return opening < 0 ? bytes.size() : opening;
    }
    if (mState != State::Opened)
        return at;
    // Of tags so close together none is absurd: what matters is the last of them, or the first that may be no tag.
    QByteArrayView reach = bytes.sliced(at, std::min(kShortestAbsurdElement, bytes.size() - at));
    for (const char mark : {'!', '?'}) {
        if (const qsizetype marked = reach.indexOf(mark); marked >= 0)
            reach = reach.first(marked);
    }
    const qsizetype last = reach.lastIndexOf('<');
    if (last >= 0)
        mHasOpened = true;
    return at + last + 1;
}

void CVFileExamination::readByte(char byte) {
    const bool isAscii = static_cast<unsigned char>(byte) < 0x80;
    if (mIsPlain && isAscii && !mWithinCharacter)
        return readCharacter(static_cast<char16_t>(byte));
    mWithinCharacter = !isAscii;
    std::array<QChar, kFromOneByte> characters{};
    const QChar* const end = mDecoder->appendToBuffer(characters.data(), QByteArrayView(&byte, 1));
    for (const QChar* character = characters.data(); character != end; ++character)
        readCharacter(character->unicode());
    // The decoder takes the byte behind half a character for a part of what is wrong.
    if (mIsPlain && isAscii && (end == characters.data() || end[-1] != QLatin1Char(byte)))
        readCharacter(static_cast<char16_t>(byte));
}

/// The rest of one that was begun has been passed over.
void CVFileExamination::forgetCharacter() {
    if (mWithinCharacter)
        mDecoder->resetState();
    mWithinCharacter = false;
}

void CVFileExamination::readCharacter(char16_t c) {
    mHoldsNulCharacter = mHoldsNulCharacter || c == u'\0';
    switch (mState) {
    case State::Text:
        if (c == u'<')
            mState = State::Opened;
        return;
    case State::Skipped:
        return readSkipped(c);
    case State::Tag:
    case State::Quoted:
        return readInTag(c);
    default:
        // A NUL here is half of a character in an encoding that could not be told.
        if (c != u'\0')
            readOpening(c);
    }
}

void CVFileExamination::readOpening(char16_t c) {
    if (mState == State::Opened)
        return open(c);
    if (c == u'<') {
        leaveOff();
        mState = State::Opened;
    } else if (mState == State::Marked) {
        if (mMaySkip && (c == kComment.start.front() || c == kSection.start.front()))
            expect(c == kComment.start.front() ? kComment : kSection);
        else
            leaveOff();
    } else if (mState == State::Matching) {
        if (c != mSkippable->start[mMatched])
            leaveOff();
        else if (++mMatched == mSkippable->start.size())
            mState = State::Skipped;
    } else if (c == u'>') {
        mState = State::Text;
    }
}

/// The character behind a less-than sign tells what it opens.
void CVFileExamination::open(char16_t c) {
    const bool isFirst = !std::exchange(mHasOpened, true);
    mAttributes = 0;
    mTagSize = 1;
    switch (c) {
    case u'<':
        break;
    case u'!':
        mState = State::Marked;
        break;
    case u'?':
        if (isFirst)
            mState = State::Declaration;
        else
            leaveOff();
        break;
    case u'/':
        mState = State::Text;
        break;
    default:
        mState = State::Tag;
    }
}

/// A start tag holds no further less-than sign, not even in quotes: each tag is looked at by itself.
void CVFileExamination::readInTag(char16_t c) {
    ++mTagSize;
    if (c == u'<') {
        mState = State::Opened;
    } else if (mState == State::Quoted) {
        if (c != mQuote)
            return;
        mState = State::Tag;
        ++mAttributes;
        mHasAbsurdElement = mHasAbsurdElement || (mAttributes > kMostAttributes && mTagSize >= kShortestAbsurdElement);
    } else if (c == u'>') {
        mState = State::Text;
    } else if (c == u'"' || c == u'\'') {
        mState = State::Quoted;
        mQuote = c;
    }
}

void CVFileExamination::readSkipped(char16_t c) {
    if (isForbidden(c) || ++mSkipped > kLongestSkipped)
        return leaveOff();
    if (c == u'>' && mMarks >= kEndMarks)
        mState = State::Text;
    mMarks = c == mSkippable->endMark ? mMarks + 1 : 0;
}

/// The first character of its start has been read.
void CVFileExamination::expect(const Skippable& skippable) {
    mState = State::Matching;
    mSkippable = &skippable;
    mMatched = 1;
    mMarks = 0;
    mSkipped = 0;
}

void CVFileExamination::leaveOff() {
    mState = State::Text;
    mMaySkip = false;
}
