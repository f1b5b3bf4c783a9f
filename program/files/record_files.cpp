#include "files/record_files.h"

#include <utility>

#include "files/record_writer.h"

namespace tessara::program {
namespace {

constexpr std::size_t RECORDS_PER_BLOCK = 1024;
constexpr std::size_t BYTES_PER_BLOCK = std::size_t{1} << 20;  // of long records there are fewer

using Records = std::vector<Record>;

// Gives records in blocks that are converted in one go.
class Blocks final : public RecordSink {
  public:
    Blocks(std::function<void(const Record&)> takeHeader, const std::function<void(Records)>& take)
        : takeHeader_(std::move(takeHeader)), take_(take) {}

    void TakeHeader(const Record& header) override { takeHeader_(header); }

    void TakeRecord(Record record) override {
        bytes_ += record.source.size();
        records_.push_back(std::move(record));
        if (records_.size() == RECORDS_PER_BLOCK || bytes_ >= BYTES_PER_BLOCK) Give();
    }

    void Give() {
        bytes_ = 0;
        take_(std::exchange(records_, {}));
    }

  private:
    std::function<void(const Record&)> takeHeader_;
    const std::function<void(Records)>& take_;
    Records records_;
    std::size_t bytes_ = 0;  // of the records
};

struct ConvertedRecords {
    Records records;
    std::vector<Output> outputs;
};

class RecordStages {
  public:
    using Block = Records;

    RecordStages(const FileRecords& options, Console& console)
        : options_(options),
          console_(console),
          writer_(options.conversion.output),
          rejectedFeatures_(options.rejects) {}

    void Read(std::istream& stream, const std::string& file, const std::function<void(Records)>& take) {
        Blocks blocks([this](const Record& header) { TakeHeader(header); }, take);
        ReadRecords(stream, file,
                    {options_.formOf(file), options_.conversion.texts.has_value(), options_.columns},
                    &blocks);
        blocks.Give();
    }

    [[nodiscard]] ConvertedRecords Convert(Records records) const {
        RecordConverter converter(options_.conversion);
        ConvertedRecords converted{std::move(records), {}};
        for (const Record& record : converted.records)
            converted.outputs.push_back(converter.Convert(record));
        return converted;
    }

    void Write(const ConvertedRecords& converted) {
        Outcome outcome;
        std::string text;
        for (std::size_t i = 0; i < converted.records.size(); ++i) {
            const Record& record = converted.records[i];
            text.clear();
            std::string wrong = converted.outputs[i].error;
            if (wrong.empty()) wrong = writer_.Append(record, converted.outputs[i], &text);
            outcome.Add(text);
            if (!wrong.empty()) outcome.Refuse(record.place + ": " + wrong + '\n', Rejected(record));
            // Nobody counts the bytes of a feature, which has no source.
            outcome.Count(1, record.source.empty() ? 0 : record.source.size() + 1);
        }
        console_.Take(outcome);
    }

    // What ends the files.
    void Finish() {
        console_.Write(writer_.Finish());
        console_.Reject(rejectedFeatures_.Finish());
    }

  private:
    void TakeHeader(const Record& header) {
        std::string text;
        writer_.AppendHeader(header, RecordConverter(options_.conversion).ConvertHeader(header), &text);
        console_.Write(text);
        // The rejected records are a file of the same form.
        if (!hasHeader_) console_.Reject(header.source + '\n');
        hasHeader_ = true;
    }

    // What is wrong with a file as a whole comes without a source.
    std::string Rejected(const Record& record) {
        std::string text = record.source.empty() ? "" : record.source + '\n';
        if (!record.feature.is_null()) rejectedFeatures_.AppendFeature(record.feature, &text);
        return text;
    }

    const FileRecords& options_;
    Console& console_;
    RecordWriter writer_;
    RecordWriter rejectedFeatures_;
    bool hasHeader_ = false;
};

}  // namespace

ExitCode ConvertRecordFiles(const InputFiles& files, const FileRecords& records) {
    return ConvertFiles<RecordStages>(files, records);
}

}  // namespace tessara::program
