#pragma once

#include <QString>

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <vector>

/// The places of texts in their order without regard to case, so that sorting many compares numbers: texts that compare
/// as equal share a rank. Made for one sort: `add` all texts, then `rank` once, then ask. Refers to the texts.
class CVTextRanks final {
public:
    /// The rank of a null text, which has no place in the order.
    static constexpr int kNoRank = -1;

    void add(const QString& text);
    void rank();
    [[nodiscard]] int rankOf(const QString& text) const;

private:
    /// Most texts are shared, so they are told apart by where they lie; the few that are equal and lie in two places
    /// only cost a comparison more.
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
