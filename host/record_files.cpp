#include "record_files.h"

#include <deque>
#include <filesystem>
#include <fstream>
#include <future>
#include <iostream>

#include "console.h"
#include "record_writer.h"
#include "rejects.h"

namespace tessara::program {
namespace {

constexpr std::size_t RECORDS_PER_BLOCK = 1024;

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

std::vector<std::string> NamesOf(const RecordFiles& options) {
    std::vector<std::string> names;
    for (const auto& [file, form] : options.files)
        names.push_back(file);
    return names;
}

// As many blocks as there are jobs are on their way; they are written in their order.
class FileConverter final : public RecordSink {
  public:
    explicit FileConverter(const RecordFiles& options)
        : options_(options),
          console_(NamesOf(options)),
          writer_(options.conversion.output),
          rejectedFeatures_(options.files.front().second) {}

    // What is wrong with the file for the rejects; empty if nothing is.
    std::string OpenRejects() { return rejects_.Open(options_.rejects, NamesOf(options_)); }

    void ConvertFile(const std::string& file, Form form) {
        if (file == "-") return ConvertStream(std::cin, file, form);
        std::ifstream stream(file, std::ios::binary);
        if (!stream || std::filesystem::is_directory(file))
            return console_.Report(file + ": can't be read\n");
        ConvertStream(stream, file, form);
    }

    [[nodiscard]] ExitCode Finish() {
        console_.Write(writer_.Finish());
        rejects_.Write(rejectedFeatures_.Finish());
        if (const std::string wrong = rejects_.Finish(); !wrong.empty()) console_.Report(wrong + '\n');
        return console_.Code();
    }

    void TakeHeader(const Record& header) override {
        std::string text;
        writer_.AppendHeader(header, RecordConverter(options_.conversion).ConvertHeader(header), &text);
        console_.Write(text);
        // The rejected records are a file of the same form.
        if (!hasHeader_) rejects_.Write(header.source + '\n');
        hasHeader_ = true;
    }

    void TakeRecord(Record record) override {
        records_.push_back(std::move(record));
        if (records_.size() == RECORDS_PER_BLOCK) Start();
    }

  private:
    void ConvertStream(std::istream& stream, const std::string& file, Form form) {
        ReadRecords(stream, file, {form, options_.conversion.texts.has_value(), options_.columns}, this);
        Start();
        while (!running_.empty())
            WriteFirst();
    }

    void Start() {
        const auto policy = options_.jobs > 1 ? std::launch::async : std::launch::deferred;
        running_.push_back(std::async(policy, [this, taken = std::exchange(records_, {})]() mutable {
            return ConvertBlock(options_.conversion, std::move(taken));
        }));
        if (running_.size() >= options_.jobs) WriteFirst();
    }

    void WriteFirst() {
        const Block block = running_.front().get();
        running_.pop_front();
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
        rejects_.Write(text);
    }

    const RecordFiles& options_;
    Console console_;
    RecordWriter writer_;
    Rejects rejects_;
    RecordWriter rejectedFeatures_;
    bool hasHeader_ = false;
    std::vector<Record> records_;
    std::deque<std::future<Block>> running_;
};

}  // namespace

ExitCode ConvertRecordFiles(const RecordFiles& options) {
    FileConverter converter(options);
    if (const std::string wrong = converter.OpenRejects(); !wrong.empty()) {
        std::cerr << wrong << '\n';
        return EXIT_INCOMPLETE;
    }
    for (const auto& [file, form] : options.files)
        converter.ConvertFile(file, form);
    return converter.Finish();
}

}  // namespace tessara::program
