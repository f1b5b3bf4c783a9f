// Reading JSON where it stands, beside a library that reads it into values.
#include "files/json_scan.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>

using tessara::program::AppendCompact;
using tessara::program::AppendString;
using tessara::program::JsonFault;
using tessara::program::JsonScan;
using tessara::program::Unescaped;
using tessara::program::WordsOf;

namespace {

// What is wrong with a text as one value; empty if nothing is.
std::string Wrong(const std::string& text) {
    try {
        JsonScan scan(text);
        scan.Value();
        scan.ExpectEnd();
        return {};
    } catch (const JsonFault& fault) {
        return WordsOf(fault);
    }
}

// Texts that hold every kind of value and every kind of character, of which others are made.
const std::string SEEDS[] = {
    R"({"a":[1,-2.5e-3,0,1E+2],"b":{"c":null,"d":[true,false]},"e":"x\"\\\/\b\f\n\r\t\u00e4\ud83d\ude00"})",
    "[[],{},\"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\",\" \",-0.0,123456789012345678901234567890]",
    " \t\r\n[ 1 , { \"k\" : \"v\" } , 2 ] \n",
    R"({"type":"Feature","geometry":{"type":"Point","coordinates":[11.5,48.25,3]},"properties":{}})",
};

// One of the seeds with a few bytes changed, left out or repeated.
std::string Mutated(std::mt19937& random) {
    static const std::string bytes("{}[]\",:\\/u0123456789dDeE+-. tfn\x1F\x7F\x80\xC3\xE2\xF0\xED\xA0\xFF",
                                   40);
    std::string text = SEEDS[random() % std::size(SEEDS)];
    for (std::uint_fast32_t count = random() % 4; count > 0; --count) {
        const std::size_t at = random() % text.size();
        switch (random() % 3) {
            case 0:
                text[at] = bytes[random() % bytes.size()];
                break;
            case 1:
                text.erase(at, 1 + random() % 3);
                break;
            default:
                text.insert(at, 1, bytes[random() % bytes.size()]);
        }
        if (text.empty()) text = "1";
    }
    return text;
}

}  // namespace

TEST(JsonScan, TakesWhatAnotherReaderTakes) {
    std::mt19937 random(7);
    int valid = 0;
    for (int i = 0; i < 100000; ++i) {
        const std::string text = Mutated(random);
        const bool isValid = nlohmann::json::accept(text);
        valid += isValid ? 1 : 0;
        ASSERT_EQ(Wrong(text).empty(), isValid) << text << '\n' << Wrong(text);
    }
    EXPECT_GT(valid, 20000);
    EXPECT_LT(valid, 80000);
}

TEST(JsonScan, GivesTheSameValues) {
    std::mt19937 random(11);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = Mutated(random);
        if (!nlohmann::json::accept(text)) continue;
        JsonScan scan(text);
        std::string compact;
        AppendCompact(scan.Value(), &compact);
        ASSERT_EQ(nlohmann::json::parse(compact), nlohmann::json::parse(text)) << text;
        ASSERT_EQ(compact.find('\n'), std::string::npos);
    }
}

// Any bytes as a string, and a string of any escapes as bytes.
TEST(JsonScan, WritesAndReadsStringsLikeAnother) {
    std::mt19937 random(13);
    for (int i = 0; i < 20000; ++i) {
        std::string bytes;
        for (std::uint_fast32_t count = random() % 12; count > 0; --count)
            bytes +=
                random() % 2 == 0 ? SEEDS[1][random() % SEEDS[1].size()] : static_cast<char>(random() % 256);
        std::string json;
        AppendString(bytes, &json);
        ASSERT_TRUE(nlohmann::json::accept(json)) << json;
        ASSERT_EQ(Unescaped(json), nlohmann::json::parse(json).get<std::string>());
    }
    const std::string escapes = R"("\"\\\/\b\f\n\r\t\u00e4\u20AC\ud83d\ude00\u0000x")";
    EXPECT_EQ(Unescaped(escapes), nlohmann::json::parse(escapes).get<std::string>());
}

TEST(JsonScan, SaysAtWhichByteItStops) {
    EXPECT_EQ(Wrong(R"({"a":1,})"), "invalid JSON at byte 8");
    EXPECT_EQ(Wrong("[1,2"), "invalid JSON at byte 5");
    EXPECT_EQ(Wrong(R"("\ud800")"), "invalid JSON at byte 8");
    EXPECT_EQ(Wrong("[1e400]"), "number too large before byte 7");
    EXPECT_EQ(Wrong("[1e-400]"), "");
    EXPECT_EQ(Wrong(std::string(201, '[') + std::string(201, ']')), "nested too deeply");
    EXPECT_EQ(Wrong(std::string(200, '[') + std::string(200, ']')), "");
}
