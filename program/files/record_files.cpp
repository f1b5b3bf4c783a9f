#include "files/record_files.h"

#include <utility>

#include "files/console.h"
#include "files/ordered_jobs.h"
#include "files/record_writer.h"

namespace tessara::program {
namespace {

constexpr std::size_t RECORDS_PER_BLOCK = 1024;
constexpr std::size_t BYTES_PER_BLOCK = std::size_t{1} << 20;  // of long records there are fewer

// Records that are converted in one go.
struct Block {
    std::vector<Record> records;
    std::vector<Output> outputs;
};

Block ConvertBlock(const RecordConversion& conversion, std::vector<Record> records) {
    RecordConverter converter(conversion);
    Block block{std::move(records), {}};
    for (const Record& record : block.records)
        block.outputs.push_back(converter.Convert(record));
    return block;
}

class FileConverter final : public RecordSink {
  public:
    FileConverter(const RecordFiles& options, Console& console)
        : options_(options),
          console_(console),
          writer_(options.conversion.output),
          rejectedFeatures_(options.formOf(options.files.front())),
          jobs_(options.jobs, [this](const Block& block) { Write(block); }) {}

    void ConvertStream(std::istream& stream, const std::string& file) {
        ReadRecords(stream, file,
                    {options_.formOf(file), options_.conversion.texts.has_value(), options_.columns}, this);
        Start();
        jobs_.Finish();
    }

    // What ends the files.
    void Finish() {
        console_.Write(writer_.Finish());
        console_.Reject(rejectedFeatures_.Finish());
    }

    void TakeHeader(const Record& header) override {
        std::string text;
        writer_.AppendHeader(header, RecordConverter(options_.conversion).ConvertHeader(header), &text);
        console_.Write(text);
        // The rejected records are a file of the same form.
        if (!hasHeader_) console_.Reject(header.source + '\n');
        hasHeader_ = true;
    }

    void TakeRecord(Record record) override {
        bytes_ += record.source.size();
        records_.push_back(std::move(record));
        if (records_.size() == RECORDS_PER_BLOCK || bytes_ >= BYTES_PER_BLOCK) Start();
    }

  private:
    void Start() {
        bytes_ = 0;
        jobs_.Start([this, taken = std::exchange(records_, {})]() mutable {
            return ConvertBlock(options_.conversion, std::move(taken));
        });
    }

    void Write(const Block& block) {
        std::string text;
        std::string errors;
        std::uint64_t bytes = 0;
        for (std::size_t i = 0; i < block.records.size(); ++i) {
            const Record& record = block.records[i];
            std::string wrong = block.outputs[i].error;
            if (wrong.empty()) wrong = writer_.Append(record, block.outputs[i], &text);
            if (!wrong.empty()) {
                errors += record.place + ": " + wrong + '\n';
                Reject(record);
            }
            bytes += record.source.size() + 1;
        }
        console_.Write(text);
        if (!errors.empty()) console_.Report(errors);
        // Nobody counts the bytes of a feature.
        const bool areFeatures = !block.records.empty() && !block.records.back().feature.is_null();
        console_.Advance(block.records.size(), areFeatures ? 0 : bytes);
    }

    // What is wrong with a file as a whole comes without a source.
    void Reject(const Record& record) {
        std::string text = record.source.empty() ? "" : record.source + '\n';
        if (!record.feature.is_null()) rejectedFeatures_.AppendFeature(record.feature, &text);
        console_.Reject(text);
    }

    const RecordFiles& options_;
    Console& console_;
    RecordWriter writer_;
    RecordWriter rejectedFeatures_;
    bool hasHeader_ = false;
    std::vector<Record> records_;
    std::size_t bytes_ = 0;  // of the records
    OrderedJobs<Block> jobs_;
};

}  // namespace

ExitCode ConvertRecordFiles(const RecordFiles& options) {
    Console console(options.files);
    if (!console.OpenRejects(options.rejects)) return EXIT_INCOMPLETE;
    FileConverter converter(options, console);
    console.ReadFiles(
        [&](std::istream& stream, const std::string& file) { converter.ConvertStream(stream, file); });
    converter.Finish();
    return console.Finish();
}

}  // namespace tessara::program
