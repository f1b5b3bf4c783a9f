#include "files/record_files.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "files/record_blocks.h"
#include "files/record_reader.h"
#include "files/record_writer.h"
#include "files/report.h"
#include "files/survey.h"
#include "files/twice_read.h"
#include "lines/columns.h"

namespace tessara::program {
namespace {

// The layout, the names and the writer of one file.
struct Plan {
    Layout layout;
    ResultNames names;
    std::shared_ptr<const OutputTable> table;
};

// Writes the frame around the features of all blocks; a separator precedes each feature.
class Collection {
  public:
    std::string Framed(std::string_view features) {
        if (features.empty()) return {};
        if (std::exchange(isBegun_, true)) return std::string(features);
        features.remove_prefix(COLLECTION_SEPARATOR.size());
        return std::string(COLLECTION_START) += features;
    }

    [[nodiscard]] std::string End() const {
        return (isBegun_ ? "" : std::string(COLLECTION_START)) += COLLECTION_END;
    }

    [[nodiscard]] bool IsEmpty() const { return !isBegun_; }

  private:
    bool isBegun_ = false;
};

class RecordStages {
  public:
    struct Block {
        std::shared_ptr<const Plan> plan;
        RecordBlock records;
    };

    RecordStages(const FileRecords& options, Console& console) : options_(options), console_(console) {}

    void Read(std::istream& stream, const std::string& file, const std::function<void(Block)>& take) {
        Layout wanted = Wanted(file);
        isInputGeoJson_ = wanted.form == Form::GEOJSON;
        if (!NeedsSurvey(options_.conversion, wanted.form)) {
            InputBuffer input(stream);
            return ReadBlocks(stream, &input, wanted, take);
        }
        TwiceRead twice(stream);
        InputBuffer first = twice.First();
        Survey(options_.conversion, &first, &wanted);
        InputBuffer second = twice.Second();
        ReadBlocks(stream, &second, wanted, take);
    }

    [[nodiscard]] Outcome Convert(const Block& block) const {
        Outcome outcome;
        const OnError onError = options_.conversion.onError;
        if (!block.records.error.empty()) {
            outcome.Refuse(block.records.error, {});
            if (onError == OnError::STOP) outcome.Stop();
            return outcome;
        }
        RecordConverter converter(options_.conversion);
        const Plan& plan = *block.plan;
        RecordWriter writer(options_.conversion, plan.layout, plan.names, plan.table.get());
        Results results;
        // The output has about the size of the input plus the results.
        outcome.Results()->reserve(2 * block.records.text.size());
        std::size_t count = 0;
        ReadRecords(plan.layout, block.records.number, block.records.text, [&](Record& record) {
            ++count;
            if (outcome.IsLast()) return;
            if (record.isBlank) return KeepBlank(record, &outcome);
            converter.Convert(record, &results);
            std::string* const out = outcome.Results();
            const std::size_t before = out->size();
            std::string wrong = results.error;
            if (wrong.empty()) wrong = Append(plan, writer, record, &results, out);
            if (wrong.empty()) {
                if (options_.conversion.isVerbose && results.reading)
                    outcome.Note(PlaceOf(plan.layout, record) + "read as " + Describe(*results.reading) +
                                 '\n');
                return;
            }
            out->resize(before);
            if (onError == OnError::KEEP) (void)Append(plan, writer, record, nullptr, out);
            outcome.Refuse(PlaceOf(plan.layout, record) + wrong + CodeOf(results) + '\n',
                           Rejected(plan.layout, record));
            if (onError == OnError::STOP) outcome.Stop();
        });
        outcome.Count(count, block.records.text.size());
        return outcome;
    }

    void Write(const Outcome& outcome) {
        const bool isCollection = options_.conversion.output == Form::GEOJSON;
        for (const Outcome::Run& run : outcome.Runs()) {
            if (!run.results.empty()) console_.Write(std::exchange(header_, {}));
            console_.Write(isCollection ? collection_.Framed(run.results) : run.results);
            console_.Reject(isInputGeoJson_ ? rejected_.Framed(run.rejects) : run.rejects);
            if (!run.messages.empty()) console_.Report(run.messages);
        }
        console_.Advance(outcome);
    }

    // Writes the end of the output. An empty input gives no collection.
    void Finish() {
        const bool isWorthIt = !collection_.IsEmpty() || !isFileWrong_;
        if (options_.conversion.output == Form::GEOJSON && isWorthIt) console_.Write(collection_.End());
        if (isInputGeoJson_) console_.Reject(rejected_.End());
    }

  private:
    [[nodiscard]] Layout Wanted(const std::string& file) const {
        Layout layout;
        layout.file = file;
        layout.form = options_.formOf(file);
        layout.areTexts = options_.conversion.from.has_value();
        layout.isForTable = IsTable(options_.conversion.output);
        layout.columns = options_.columns;
        const bool arePlaces = ArePlaces(options_.columns);
        const bool areNamed = !options_.columns.empty() && !arePlaces;
        layout.hasHeader = IsTable(layout.form) ? !arePlaces : layout.form == Form::LINES && areNamed;
        return layout;
    }

    void ReadBlocks(const std::istream& stream, InputBuffer* input, const Layout& wanted,
                    const std::function<void(Block)>& take) {
        const std::unique_ptr<RecordBlocks> blocks = MakeRecordBlocks(wanted.form, wanted.file, input);
        std::optional<Layout> layout = blocks->ReadLayout(wanted);
        if (!layout) return;
        const std::string wrong = WrongHeader(*layout, blocks->Header());
        if (!wrong.empty()) {
            isFileWrong_ = true;
            return console_.Report(wrong + '\n');
        }
        if (!IsJson(layout->form)) KeepColumns(options_.conversion, &*layout);
        const auto plan = std::make_shared<Plan>();
        plan->names = NameResults(options_.conversion, *layout);
        plan->layout = std::move(*layout);
        plan->table = TableOf(*plan);
        WriteHeader(*plan, blocks->Header());
        for (RecordBlock block; blocks->Next(&block);) {
            isFileWrong_ = isFileWrong_ || !block.error.empty();
            // The reader reports a read error.
            if (!block.error.empty() && stream.bad()) continue;
            take({plan, std::move(block)});
        }
    }

    // The error that affects all records of a file.
    static std::string WrongHeader(const Layout& layout, const std::string& header) {
        if (!layout.hasHeader || IsJson(layout.form)) return {};
        const std::string place =
            layout.file + (IsTable(layout.form) ? ":" + std::to_string(layout.firstLine) : "") + ": ";
        if (IsTable(layout.form) && EndsInQuotes(header, layout.separator)) return place + "unclosed quote";
        const std::string wrong = WrongNames(layout.at, layout);
        return wrong.empty() ? "" : place + wrong;
    }

    std::shared_ptr<const OutputTable> TableOf(const Plan& plan) {
        const bool isWanted = IsTable(options_.conversion.output) && !options_.conversion.isReport;
        if (isWanted && !table_) {
            table_ = MakeTable(options_.conversion, plan.layout, plan.names);
            if (table_->hasHeader) header_ = JoinColumns(table_->names, table_->separator) + '\n';
        }
        return table_;
    }

    // An input with a header and no records gives a header.
    void WriteHeader(const Plan& plan, const std::string& header) {
        const bool isTextLine = plan.layout.form == Form::LINES && plan.layout.hasHeader;
        const bool isFirst = !std::exchange(hasHeader_, true);
        if (isFirst && isTextLine && options_.conversion.output == Form::LINES &&
            !options_.conversion.isReport) {
            const OutputTable columns = *MakeTable(options_.conversion, plan.layout, plan.names);
            header_ = JoinColumns(columns.names, columns.separator) + '\n';
        }
        if (!plan.layout.hasHeader) return;
        console_.Write(std::exchange(header_, {}));
        // The file of rejects has the format of the input, header included.
        if (isFirst) console_.Reject(header + '\n');
    }

    [[nodiscard]] std::string Append(const Plan& plan, RecordWriter& writer, const Record& record,
                                     const Results* results, std::string* out) const {
        if (!options_.conversion.isReport) return writer.Append(record, results, out);
        AppendReport(options_.conversion, plan.layout, record, results, out);
        return {};
    }

    // --on-error keep preserves line numbers, so that lines without a record are copied.
    void KeepBlank(const Record& record, Outcome* outcome) const {
        const bool isKept = options_.conversion.onError == OnError::KEEP &&
                            options_.conversion.output == Form::LINES && !options_.conversion.isReport;
        if (isKept) (*outcome->Results() += record.source) += '\n';
    }

    static std::string PlaceOf(const Layout& layout, const Record& record) {
        const char* const between = layout.form == Form::GEOJSON ? ": feature " : ":";
        return layout.file + between + std::to_string(record.number) + ": ";
    }

    // Programs that read --json also read its messages.
    [[nodiscard]] std::string CodeOf(const Results& results) const {
        const bool isWanted = options_.conversion.isReport && *results.code != '\0';
        return isWanted ? std::string(" [") + results.code + ']' : "";
    }

    static std::string Rejected(const Layout& layout, const Record& record) {
        if (layout.form != Form::GEOJSON) return std::string(record.source) += '\n';
        return std::string(COLLECTION_SEPARATOR) += record.source;
    }

    const FileRecords& options_;
    Console& console_;
    std::shared_ptr<const OutputTable> table_;
    std::string header_;  // of a table, written before the first row
    bool hasHeader_ = false;
    bool isInputGeoJson_ = false;
    bool isFileWrong_ = false;
    Collection collection_;
    Collection rejected_;
};

}  // namespace

ExitCode ConvertRecordFiles(const InputFiles& files, const FileRecords& records) {
    return ConvertFiles<RecordStages>(files, records);
}

}  // namespace tessara::program
