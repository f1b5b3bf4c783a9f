#include "files/number_lines.h"

#include <iostream>

#include "files/field_writing.h"
#include "files/json_object.h"
#include "files/line_blocks.h"
#include "files/record_reader.h"

namespace tessara::program {
namespace {

void AddMembers(const NumberComputation& computation, const std::vector<double>& numbers,
                const std::vector<Field>& results, JsonObject* object) {
    for (std::size_t i = 0; i < numbers.size(); ++i)
        object->Number(computation.input.columns[i].name, numbers[i]);
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
        const NumberReader reader(options_.computation.input, options_.computation.datum);
        std::size_t number = block.lines.number;
        for (std::string_view rest = block.lines.text; !rest.empty() && !outcome.IsLast(); ++number) {
            const std::string_view whole = FirstRecord(rest, Form::LINES, ',');
            rest.remove_prefix(whole.size());
            const std::string_view line = WithoutLineEnd(whole);
            const std::string wrong = ConvertLine(reader, block.file, number, line, outcome.Results());
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

    std::string ConvertLine(const NumberReader& reader, const std::string& file, std::size_t number,
                            std::string_view line, std::string* out) const {
        const NumberComputation& computation = options_.computation;
        const NumberReading read = reader.ReadLine(line);
        if (!read.IsRead()) return read.error;
        if (read.numbers.empty()) {
            if (options_.onError == OnError::KEEP && !options_.isJson) (*out += line) += '\n';
            return {};
        }
        std::vector<Field> results;
        std::string wrong = computation.compute(read.numbers, &results);
        if (!wrong.empty()) return wrong;
        if (options_.isJson) {
            JsonObject object(out);
            object.Text("file", file);
            *object.Name("line") += std::to_string(number);
            AddMembers(computation, read.numbers, results, &object);
            if (!read.rest.empty()) object.Text("rest", read.rest);
            object.End();
            *out += '\n';
            return {};
        }
        AppendFields(results, out);
        if (!read.rest.empty()) (*out += '\t') += read.rest;
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
