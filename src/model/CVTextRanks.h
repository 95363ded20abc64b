#pragma once

#include <QString>

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <vector>

/// Ranks texts without regard to case, so that a sort compares numbers instead of texts; texts that compare as equal
/// share a rank. Serves one sort: `add` all texts, call `rank` once, then `rankOf`.
class CVTextRanks final {
public:
    /// The number and the rank of a null text, which has no place in the order.
    static constexpr int kNoRank = -1;

    /// The number of a text, for `rankOf`.
    [[nodiscard]] int add(const QString& text);
    void rank();
    [[nodiscard]] int rankOf(int number) const {
        return number == kNoRank ? kNoRank : mRanks[static_cast<std::size_t>(number)];
    }

private:
    /// Identifies a text by its memory, because most equal texts share theirs; equal texts in two places only cost one
    /// more comparison.
    struct Place {
        const QChar* start;
        qsizetype size;
        friend bool operator==(const Place&, const Place&) = default;
    };
    struct PlaceHash {
        std::size_t operator()(const Place& place) const {
            return std::hash<const QChar*>()(place.start) / alignof(std::max_align_t) +
                   static_cast<std::size_t>(place.size);
        }
    };

    std::unordered_map<Place, int, PlaceHash> mNumbers;
    /// Both by the number of the text.
    std::vector<QString> mTexts;
    std::vector<int> mRanks;
};
