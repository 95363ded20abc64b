#pragma once

#include <QString>

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <vector>

/// Ranks texts without regard to case, so that a sort compares numbers instead of texts; texts that compare as equal
/// share a rank. Serves one sort: `add` all texts, call `rank` once, then `rankOf` for the texts that were added.
class CVTextRanks final {
public:
    /// The rank of a null text, which has no place in the order.
    static constexpr int kNoRank = -1;

    void add(const QString& text);
    void rank();
    [[nodiscard]] int rankOf(const QString& text) const;

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
    [[nodiscard]] static Place placeOf(const QString& text) { return {text.constData(), text.size()}; }

    std::unordered_map<Place, int, PlaceHash> mRanks;
    std::vector<QString> mTexts;
};
