#include "importing/CVCategoryMemory.h"

#include "importing/CVRecordedLines.h"

#include <algorithm>
#include <utility>

namespace {

/// A vote looks at so many transactions, the newest.
constexpr std::size_t kVoters = 40;
/// What was usual lately is what so many transactions say.
constexpr std::size_t kLately = 12;
constexpr std::size_t kFewestForSure = 2;
/// Of one hundred transactions, so many have the category that a payee has by far mostly.
constexpr std::size_t kByFarMostly = 95;
constexpr std::size_t kHundred = 100;
constexpr std::size_t kMostFrom = 5;

/// Older payees are known as they were recorded, not by their keys, which would take too long.
constexpr std::size_t kMostPayeesWithKeys = 5'000;
constexpr qsizetype kLettersOfBegin = 4;
constexpr std::size_t kMostThatBeginAlike = 300;
constexpr std::size_t kMostCompared = 16;
/// Payees that are less like by so much are as likely.
constexpr double kAsLike = 0.05;

constexpr qsizetype kShortestTellingWord = 4;
/// A word tells something when so many payees have it.
constexpr std::size_t kFewestWithWord = 3;
/// Of one hundred payees with a telling word, so many have the same category.
constexpr std::size_t kSameWithWord = 80;

template <typename Value>
struct Winner {
    Value value{};
    std::size_t votes = 0;
};

/// The value that most have; of several, the one that comes first.
template <typename Value, typename Places, typename ValueOf>
Winner<Value> mostFrequent(const Places& places, std::size_t count, ValueOf valueOf) {
    std::vector<Winner<Value>> values;
    for (std::size_t at = 0; at < count; ++at) {
        const Value value = valueOf(places[at]);
        const auto found =
            std::find_if(values.begin(), values.end(), [&value](const auto& each) { return each.value == value; });
        if (found == values.end())
            values.push_back({value, 1});
        else
            ++found->votes;
    }
    const auto most =
        std::max_element(values.begin(), values.end(), [](const auto& a, const auto& b) { return a.votes < b.votes; });
    return most == values.end() ? Winner<Value>() : *most;
}

/// Puts the newest first and leaves no more than vote.
void arrange(std::vector<quint32>& lines) {
    std::sort(lines.begin(), lines.end());
    lines.resize(std::min(lines.size(), kVoters));
}

} // namespace

CVCategoryMemory::CVCategoryMemory(const CVDocument& document)
    : CVCategoryMemory(std::make_shared<const CVRecordedLines>(document)) {}

CVCategoryMemory::CVCategoryMemory(std::shared_ptr<const CVRecordedLines> recorded) : mRecorded(std::move(recorded)) {
    rememberPayees();
}

CVCategoryMemory::~CVCategoryMemory() = default;

CVRememberedCategory CVCategoryMemory::of(const QString& payee, const QString& purpose) const {
    rememberPayees();
    CVRememberedCategory exactly;
    if (const auto place = mPlacesOfPayees.constFind(payee); place != mPlacesOfPayees.constEnd())
        exactly = known(mPayees[*place].lines, purpose);
    if (exactly.sure == CVSureness::Sure)
        return exactly;
    rememberKeys();
    const CVPayeeKey key(payee);
    if (const auto place = mPlacesOfKeys.constFind(key.text()); place != mPlacesOfKeys.constEnd()) {
        auto byKey = known(mKeys[*place].lines, purpose);
        return byKey.sure > exactly.sure ? byKey : exactly;
    }
    if (exactly.sure != CVSureness::None || key.isEmpty())
        return exactly;
    auto guessed = mGuesses.constFind(key.text());
    if (guessed == mGuesses.constEnd()) {
        auto byLikeness = ofLikestKeys(key);
        guessed = mGuesses.insert(key.text(), byLikeness.sure == CVSureness::None ? ofWords(key) : byLikeness);
    }
    return *guessed;
}

void CVCategoryMemory::rememberPayees() const {
    if (mKnowsPayees)
        return;
    mKnowsPayees = true;
    const auto& lines = mRecorded->lines();
    // Most equal texts share their memory, by which they are found again in a fraction of the time.
    QHash<std::pair<const QChar*, qsizetype>, quint32> placesByMemory;
    for (quint32 place = 0; place < lines.size(); ++place) {
        const QString& payee = lines[place].payee;
        if (payee.isEmpty() || !mRecorded->hasCategory(lines[place].category))
            continue;
        const std::pair memory(payee.constData(), payee.size());
        auto known = placesByMemory.constFind(memory);
        if (known == placesByMemory.constEnd())
            known = placesByMemory.insert(memory, placeOf(payee));
        if (Lines& ofPayee = mPayees[*known].lines; ofPayee.size() < kVoters)
            ofPayee.push_back(place);
    }
}

/// Of a payee among the recorded ones.
quint32 CVCategoryMemory::placeOf(const QString& payee) const {
    const auto known = mPlacesOfPayees.constFind(payee);
    if (known != mPlacesOfPayees.constEnd())
        return *known;
    const auto place = static_cast<quint32>(mPayees.size());
    mPlacesOfPayees.insert(payee, place);
    mPayees.push_back({payee, {}});
    return place;
}

void CVCategoryMemory::rememberKeys() const {
    if (mKnowsKeys)
        return;
    mKnowsKeys = true;
    const std::size_t count = std::min(mPayees.size(), kMostPayeesWithKeys);
    for (std::size_t at = 0; at < count; ++at) {
        const auto& [payee, lines] = mPayees[at];
        CVPayeeKey key(payee);
        if (key.isEmpty())
            continue;
        auto known = mPlacesOfKeys.find(key.text());
        if (known == mPlacesOfKeys.end()) {
            known = mPlacesOfKeys.insert(key.text(), static_cast<quint32>(mKeys.size()));
            mKeys.push_back({std::move(key), {}});
            rememberWords(*known);
        }
        Lines& ofKey = mKeys[*known].lines;
        ofKey.insert(ofKey.end(), lines.begin(), lines.end());
    }
    for (KnownKey& known : mKeys)
        arrange(known.lines);
}

void CVCategoryMemory::rememberWords(quint32 place) const {
    const auto note = [place](std::vector<quint32>& places) {
        if (places.empty() || places.back() != place)
            places.push_back(place);
    };
    for (const QString& word : mKeys[place].key.words()) {
        note(mKeysWithWord[word]);
        note(mKeysWithBegin[word.left(kLettersOfBegin)]);
    }
}

const CVRecordedLine& CVCategoryMemory::line(quint32 place) const {
    return mRecorded->lines()[place];
}

/// Of a payee that was recorded before.
CVRememberedCategory CVCategoryMemory::known(const Lines& lines, const QString& purpose) const {
    auto byAll = vote(lines);
    if (byAll.sure == CVSureness::Sure || purpose.isEmpty())
        return byAll;
    auto byPurpose = vote(withPurpose(lines, purpose));
    return byPurpose.sure == CVSureness::None ? byAll : byPurpose;
}

CVRememberedCategory CVCategoryMemory::vote(const Lines& lines) const {
    const auto categoryOf = [this](quint32 place) { return line(place).category; };
    const std::size_t lately = std::min(lines.size(), kLately);
    const auto [category, votes] = mostFrequent<quint32>(lines, lately, categoryOf);
    if (2 * votes <= lately)
        return {};
    std::size_t same = 0;
    std::size_t changes = 0;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        same += categoryOf(lines[at]) == category ? 1 : 0;
        changes += at > 0 && categoryOf(lines[at]) != categoryOf(lines[at - 1]) ? 1 : 0;
    }
    // One change is that of somebody who has decided otherwise.
    const bool isUsual = changes <= 1 || kHundred * same >= kByFarMostly * lines.size();
    const bool isSure = isUsual && votes == lately && votes >= kFewestForSure;
    return remembered(lines, category, isSure ? CVSureness::Sure : CVSureness::Likely);
}

CVRememberedCategory CVCategoryMemory::remembered(const Lines& lines, quint32 category, CVSureness sure) const {
    CVRememberedCategory result{mRecorded->nameOfCategory(category), {}, sure, {}};
    Lines ofCategory;
    for (const quint32 place : lines) {
        if (line(place).category == category && ofCategory.size() < kLately)
            ofCategory.push_back(place);
    }
    result.purpose = usualPurpose(ofCategory);
    for (std::size_t at = 0; at < std::min(ofCategory.size(), kMostFrom); ++at)
        result.from.push_back(line(ofCategory[at]).transaction);
    return result;
}

QString CVCategoryMemory::usualPurpose(const Lines& lines) const {
    const auto [purpose, votes] =
        mostFrequent<QString>(lines, lines.size(), [this](quint32 place) { return line(place).xfor; });
    return 2 * votes > lines.size() ? purpose : QString();
}

auto CVCategoryMemory::withPurpose(const Lines& lines, const QString& purpose) const -> Lines {
    Lines found;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
                 [&](quint32 place) { return line(place).xfor.compare(purpose, Qt::CaseInsensitive) == 0; });
    return found;
}

/// The keys that share the most beginnings of words, the most first, and of several the newest.
std::vector<quint32> CVCategoryMemory::keysThatBeginAlike(const CVPayeeKey& key) const {
    std::vector<const std::vector<quint32>*> lists;
    for (const QString& word : key.words()) {
        if (const auto found = mKeysWithBegin.constFind(word.left(kLettersOfBegin)); found != mKeysWithBegin.constEnd())
            lists.push_back(&*found);
    }
    // A beginning that few have says more.
    std::stable_sort(lists.begin(), lists.end(), [](const auto* a, const auto* b) { return a->size() < b->size(); });
    std::vector<quint32> all;
    for (const auto* list : lists) {
        const std::size_t room = kMostThatBeginAlike - all.size();
        all.insert(all.end(), list->begin(), list->begin() + static_cast<std::ptrdiff_t>(std::min(list->size(), room)));
    }
    std::sort(all.begin(), all.end());
    std::vector<std::pair<std::size_t, quint32>> counted;
    for (const quint32 place : all) {
        if (counted.empty() || counted.back().second != place)
            counted.emplace_back(0, place);
        ++counted.back().first;
    }
    std::stable_sort(counted.begin(), counted.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<quint32> keys;
    for (std::size_t at = 0; at < std::min(counted.size(), kMostCompared); ++at)
        keys.push_back(counted[at].second);
    return keys;
}

CVRememberedCategory CVCategoryMemory::ofLikestKeys(const CVPayeeKey& key) const {
    std::vector<std::pair<double, quint32>> likest;
    double best = CVPayeeKey::kLikely;
    for (const quint32 place : keysThatBeginAlike(key)) {
        likest.emplace_back(key.likeness(mKeys[place].key), place);
        best = std::max(best, likest.back().first);
    }
    Lines lines;
    for (const auto& [likeness, place] : likest) {
        if (likeness >= CVPayeeKey::kLikely && likeness >= best - kAsLike)
            lines.insert(lines.end(), mKeys[place].lines.begin(), mKeys[place].lines.end());
    }
    arrange(lines);
    auto result = vote(lines);
    result.sure = std::min(result.sure, CVSureness::Likely);
    return result;
}

/// Nothing where two words say different things.
CVRememberedCategory CVCategoryMemory::ofWords(const CVPayeeKey& key) const {
    CVRememberedCategory result;
    for (const QString& word : key.words()) {
        auto byWord = word.size() >= kShortestTellingWord ? ofWord(word) : CVRememberedCategory();
        if (byWord.sure == CVSureness::None)
            continue;
        if (result.sure != CVSureness::None && result.category != byWord.category)
            return {};
        result = std::move(byWord);
    }
    return result;
}

CVRememberedCategory CVCategoryMemory::ofWord(const QString& word) const {
    const auto keys = mKeysWithWord.constFind(word);
    if (keys == mKeysWithWord.constEnd() || keys->size() < kFewestWithWord)
        return {};
    Lines newestOfEach;
    for (std::size_t at = 0; at < std::min(keys->size(), kVoters); ++at)
        newestOfEach.push_back(mKeys[(*keys)[at]].lines.front());
    arrange(newestOfEach);
    const auto [category, votes] = mostFrequent<quint32>(newestOfEach, newestOfEach.size(),
                                                         [this](quint32 place) { return line(place).category; });
    if (kHundred * votes < kSameWithWord * newestOfEach.size())
        return {};
    auto result = remembered(newestOfEach, category, CVSureness::Likely);
    // What other payees were paid for says nothing about this one.
    result.purpose.clear();
    return result;
}
