#pragma once

#include <QString>

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

/// Decodes and keeps each text of a file once, so that equal texts share their characters. Decoding each takes 40 ms
/// and 11 MB more when 100,000 transactions are read, which takes 190 ms.
class CVTextPool final {
public:
    struct Text {
        QString text;
        /// Whether the text can be saved as it stands in the file.
        bool isWhole = true;
    };
    /// The text of these bytes, as long as the pool lives; empty for no bytes, null when they are not valid UTF-8.
    [[nodiscard]] const Text& text(std::string_view utf8);

private:
    /// Looks up a view without making a string of it.
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    Text mEmpty{QLatin1String("")};
    std::unordered_map<std::string, Text, Hash, std::equal_to<>> mTexts;
};
