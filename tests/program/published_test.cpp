// The published positions of examples/data, converted by the program.
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>

#include "program/run_program.h"

using tessara::testing::Outcome;
using tessara::testing::Tessara;
using Json = nlohmann::json;

namespace {

struct Figure {
    std::string field;
    std::string value;  // as it is printed in the source
};

struct Published {
    std::string line;
    std::string datum;
    std::string position;
    std::string target;
    std::vector<Figure> figures;
    std::optional<double> within;  // where half a unit of the last digit isn't the measure
    std::string source;
};

std::string Trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string::npos) return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

std::vector<std::string> Columns(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> columns;
    for (std::string column; std::getline(stream, column, '|');)
        columns.push_back(Trimmed(column));
    return columns;
}

std::optional<double> Number(const std::string& text) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

Published ReadPublished(const std::string& line) {
    const std::vector<std::string> columns = Columns(line);
    if (columns.size() != 5) {
        ADD_FAILURE() << "not five columns: " << line;
        return {};
    }
    Published published{line, columns[0], columns[1], columns[2], {}, std::nullopt, columns[4]};
    std::istringstream words(columns[3]);
    for (std::string word; words >> word;) {
        const std::size_t sign = word.find('=');
        const Figure figure{word.substr(0, sign), word.substr(sign + 1)};
        if (figure.field == "within") {
            published.within = Number(figure.value);
        } else {
            published.figures.push_back(figure);
        }
    }
    return published;
}

std::vector<Published> ReadAll() {
    std::ifstream file(TESSARA_SOURCE_DIR "/examples/data/published.txt");
    std::vector<Published> all;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#') all.push_back(ReadPublished(line));
    }
    return all;
}

double HalfAUnitOfTheLastDigit(const std::string& number) {
    const std::size_t point = number.find('.');
    const std::size_t decimals = point == std::string::npos ? 0 : number.size() - point - 1;
    return 0.5 * std::pow(10.0, -static_cast<double>(decimals));
}

void ExpectFigure(const Json& result, const Figure& figure, std::optional<double> within) {
    SCOPED_TRACE(figure.field);
    ASSERT_TRUE(result.contains(figure.field));
    const Json& value = result[figure.field];
    if (value.is_string()) {
        EXPECT_EQ(value.get<std::string>(), figure.value);
        return;
    }
    const std::optional<double> expected = Number(figure.value);
    ASSERT_TRUE(expected) << figure.value;
    // Rounded decimals such as 0.1 are no binary fractions: a billionth of a unit more.
    const double tolerance = within.value_or(HalfAUnitOfTheLastDigit(figure.value)) * (1.0 + 1e-9);
    EXPECT_NEAR(value.get<double>(), *expected, tolerance);
}

}  // namespace

TEST(PublishedPositions, AgreeToTheirPublishedPrecision) {
    for (const Published& published : ReadAll()) {
        SCOPED_TRACE(published.line);
        const Outcome outcome = Tessara(
            {"convert", "--json", "--from", published.datum, "--to", published.target}, published.position);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        if (outcome.status != 0) continue;
        const Json result = Json::parse(outcome.out)["results"][0];
        EXPECT_FALSE(published.figures.empty());
        for (const Figure& figure : published.figures)
            ExpectFigure(result, figure, published.within);
    }
}

TEST(PublishedPositions, NameTheirSources) {
    const std::vector<Published> all = ReadAll();
    EXPECT_GE(all.size(), 30u);
    for (const Published& published : all)
        EXPECT_FALSE(published.source.empty()) << published.line;
}

TEST(SamplePositions, ConvertToWorldSystems) {
    const Outcome outcome = Tessara({"convert", "--to", "UTM", "--to", "UTMREF", "--to", "GEOGRAD",
                                     TESSARA_SOURCE_DIR "/examples/data/cities.txt"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
}
