#include "commands/typed_position.h"

#include <iostream>

#include "files/record_writer.h"
#include "files/report.h"
#include "files/typed_words.h"

namespace tessara::program {
namespace {

// The number of characters in a UTF-8 text.
std::size_t Width(std::string_view bytes) {
    std::size_t width = 0;
    for (const char c : bytes)
        width += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
    return width;
}

bool IsShowable(std::string_view text) {
    return text.size() <= 200 && text.find_first_of("\t\r\n\v\f\x1b") == std::string_view::npos;
}

std::string InBrackets(const RecordConversion& conversion, const char* code) {
    return conversion.isReport && *code != '\0' ? " [" + std::string(code) + "]" : "";
}

// The position as a record of standard input; only its results are written.
Record RecordOf(const std::vector<std::string>& texts) {
    Record record;
    record.number = 1;
    for (const std::string& text : texts)
        record.members.push_back({"", {Notation::Plain, text}});
    record.at = {0, texts.size() - 1, NO_MEMBER};
    return record;
}

}  // namespace

std::string ExplainFault(const TypedResult& result, const std::vector<std::string>& words) {
    std::string lines = result.fault.reason + '\n';
    const std::vector<std::string> texts = TextsOf(words);
    const auto& [number, begin, end] = result.fault.piece;
    if (!result.readings.empty()) return lines;
    if (number >= texts.size() || end > texts[number].size() || !IsShowable(texts[number])) return lines;
    const std::string_view text = texts[number];
    lines += "  " + std::string(text) + "\n  " + std::string(Width(text.substr(0, begin)), ' ') +
             std::string(std::max<std::size_t>(Width(text.substr(begin, end - begin)), 1), '^') + '\n';
    return lines;
}

ExitCode ConvertTypedPosition(const std::vector<std::string>& words, const RecordConversion& conversion) {
    const TypedResult read = ReadWords(TypedReader(*conversion.from), words);
    if (!read.IsRead()) {
        std::string lines = ExplainFault(read, words);
        std::cerr << "tessara: " << lines.insert(lines.find('\n'), InBrackets(conversion, read.fault.code));
        return EXIT_INCOMPLETE;
    }
    if (conversion.isVerbose) std::cerr << "tessara: read as " << Describe(read.readings.front()) << '\n';
    Results results;
    RecordConverter(conversion).ConvertTyped(read, &results);
    if (!results.error.empty()) {
        std::cerr << "tessara: " << results.error << InBrackets(conversion, results.code) << '\n';
        return EXIT_INCOMPLETE;
    }
    const std::vector<std::string> texts = TextsOf(words);
    const Record record = RecordOf(texts);
    Layout layout;
    layout.file = "-";
    layout.form = Form::JSONL;
    std::string out;
    if (conversion.isReport) {
        AppendReport(conversion, layout, record, &results, &out);
    } else {
        (void)RecordWriter(conversion, layout, {}, nullptr).Append(record, &results, &out);
    }
    std::cout << out;
    return EXIT_DONE;
}

}  // namespace tessara::program
