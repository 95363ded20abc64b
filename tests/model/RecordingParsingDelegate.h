#pragma once

#include "model/CVParsing.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

/// Replaces the parser: records the calls of a record and hands out prepared characters.
class RecordingParsingDelegate final : public CVParsingDelegate {
public:
    void setStoringCharacters(bool storing) override { mCalls.emplace_back(storing ? "store" : "do not store"); }
    void setWorkingOnUnknownTag(bool unknown) override { mCalls.emplace_back(unknown ? "skip" : "do not skip"); }
    void setUnknownTag(const char* name) override { mCalls.emplace_back(std::string("unknown ") + name); }
    [[nodiscard]] QString tempParsingString() override {
        mCalls.emplace_back("take");
        return std::exchange(mCharacters, QString(QLatin1String("")));
    }
    void notePartly(CVPartly what, const char* name, const char* value) override {
        mPartly.push_back({what, name, value ? value : ""});
    }
    void popParsingObjectForEndingElement(const char* name) override {
        mCalls.emplace_back(std::string("pop ") + name);
    }

    struct Noted {
        CVPartly what = CVPartly::Value;
        std::string name;
        std::string value;

        friend bool operator==(const Noted&, const Noted&) = default;
    };
    /// What was noted since the last takePartly().
    [[nodiscard]] std::vector<Noted> takePartly() { return std::exchange(mPartly, {}); }

    /// Sets the result of the next `tempParsingString`.
    void setCharacters(const QString& characters) { mCharacters = characters; }
    /// The calls since the last takeCalls().
    [[nodiscard]] std::vector<std::string> takeCalls() { return std::exchange(mCalls, {}); }

    /// Starts an element. Attributes are alternating names and values.
    void start(CVParsingObject& record, const char* name, std::initializer_list<const char*> attributes = {}) {
        std::vector<const char*> list(attributes);
        list.push_back(nullptr);
        record.parsingDelegateStartElement(*this, name, attributes.size() ? list.data() : nullptr);
    }
    /// Ends an element that contains these characters.
    void end(CVParsingObject& record, const char* name, const QString& characters = QLatin1String("")) {
        mCharacters = characters;
        record.parsingDelegateEndElement(*this, name);
    }

private:
    QString mCharacters = QLatin1String("");
    std::vector<std::string> mCalls;
    std::vector<Noted> mPartly;
};
