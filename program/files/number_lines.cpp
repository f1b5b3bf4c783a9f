#include "files/number_lines.h"

#include <iostream>

#include "conversion/numbers.h"
#include "files/field_writing.h"
#include "files/json_object.h"
#include "files/line_blocks.h"
#include "files/record_reader.h"

namespace tessara::program {
namespace {

constexpr std::string_view BLANKS = " \t\r\v\f";

std::string_view TrimBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(BLANKS) + 1));
    return text;
}

// The words of the numbers, and the rest of the line.
struct NumberLine {
    std::vector<std::string_view> words;
    std::string_view rest;
};

NumberLine Split(std::string_view line, std::size_t count) {
    NumberLine split;
    split.rest = TrimBlanks(line.substr(0, line.find('#')));
    while (split.words.size() < count && !split.rest.empty()) {
        const std::size_t end = std::min(split.rest.find_first_of(BLANKS), split.rest.size());
        split.words.push_back(split.rest.substr(0, end));
        split.rest = TrimBlanks(split.rest.substr(end));
    }
    return split;
}

std::string ReadNumbers(const NumberLine& line, const std::vector<NumberColumn>& columns,
                        std::vector<double>* numbers) {
    if (line.words.size() < columns.size()) {
        std::string names;
        for (const NumberColumn& column : columns)
            (names += ' ') += column.name;
        return "expected" + names + ", found " + std::to_string(line.words.size()) +
               (line.words.size() == 1 ? " value" : " values");
    }
    numbers->clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::string wrong = columns[i].wrong(line.words[i]);
        if (!wrong.empty()) return wrong;
        numbers->push_back(*ParseNumber(line.words[i]));
    }
    return {};
}

void AddMembers(const NumberComputation& computation, const std::vector<double>& numbers,
                const std::vector<Field>& results, JsonObject* object) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
        object->Number(computation.columns[i].name, numbers[i]);
    object->Fields(computation.about);
    object->Fields(results);
}

void AppendFields(const std::vector<Field>& fields, std::string* line) {
    for (const Field& field : fields) {
        if (&field != fields.data()) *line += ' ';
        AppendText(field, line);
    }
}

class NumberStages {
  public:
    struct Block {
        std::string file;
        RecordBlock lines;
    };

    NumberStages(const NumberLines& options, Console& console) : options_(options), console_(console) {}

    void Read(std::istream& stream, const std::string& file, const std::function<void(Block)>& take) {
        InputBuffer input(stream);
        const std::unique_ptr<RecordBlocks> blocks = MakeLineBlocks(Form::LINES, file, &input);
        for (RecordBlock block; blocks->Next(&block);)
            take({file, std::move(block)});
    }

    [[nodiscard]] Outcome Convert(const Block& block) const {
        Outcome outcome;
        if (!block.lines.error.empty()) Refuse(block.lines.error, {}, &outcome);
        std::size_t number = block.lines.number;
        for (std::string_view rest = block.lines.text; !rest.empty() && !outcome.IsLast(); ++number) {
            const std::string_view whole = FirstRecord(rest, Form::LINES, ',');
            rest.remove_prefix(whole.size());
            const std::string_view line = WithoutLineEnd(whole);
            const std::string wrong = ConvertLine(block.file, number, line, outcome.Results());
            if (wrong.empty()) continue;
            if (options_.onError == OnError::KEEP) *outcome.Results() += options_.isJson ? "null\n" : "*\n";
            const std::string place = block.file + ":" + std::to_string(number) + ": ";
            Refuse(place + wrong + '\n', std::string(line) + '\n', &outcome);
        }
        outcome.Count(number - block.lines.number, block.lines.text.size());
        return outcome;
    }

    void Write(const Outcome& outcome) { console_.Take(outcome); }
    void Finish() {}

  private:
    void Refuse(const std::string& message, const std::string& input, Outcome* outcome) const {
        outcome->Refuse(message, input);
        if (options_.onError == OnError::STOP) outcome->Stop();
    }

    std::string ConvertLine(const std::string& file, std::size_t number, std::string_view line,
                            std::string* out) const {
        const NumberComputation& computation = options_.computation;
        const NumberLine split = Split(line, computation.columns.size());
        if (split.words.empty()) {
            if (options_.onError == OnError::KEEP && !options_.isJson) (*out += line) += '\n';
            return {};
        }
        std::vector<double> numbers;
        std::vector<Field> results;
        std::string wrong = ReadNumbers(split, computation.columns, &numbers);
        if (wrong.empty()) wrong = computation.compute(numbers, &results);
        if (!wrong.empty()) return wrong;
        if (options_.isJson) {
            JsonObject object(out);
            object.Text("file", file);
            *object.Name("line") += std::to_string(number);
            AddMembers(computation, numbers, results, &object);
            if (!split.rest.empty()) object.Text("rest", split.rest);
            object.End();
            *out += '\n';
            return {};
        }
        AppendFields(results, out);
        if (!split.rest.empty()) (*out += '\t') += split.rest;
        *out += '\n';
        return {};
    }

    const NumberLines& options_;
    Console& console_;
};

}  // namespace

ExitCode ComputeLines(const InputFiles& files, const NumberLines& lines) {
    return ConvertFiles<NumberStages>(files, lines);
}

ExitCode ComputeOnce(const NumberComputation& computation, const std::vector<double>& numbers, bool isJson) {
    std::vector<Field> results;
    const std::string wrong = computation.compute(numbers, &results);
    if (!wrong.empty()) {
        std::cerr << "tessara: " << wrong << '\n';
        return EXIT_INCOMPLETE;
    }
    std::string text;
    if (isJson) {
        JsonObject object(&text);
        AddMembers(computation, numbers, results, &object);
        object.End();
    } else {
        AppendFields(results, &text);
    }
    std::cout << text << '\n';
    return EXIT_DONE;
}

}  // namespace tessara::program
