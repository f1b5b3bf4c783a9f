// Records of arbitrary bytes, in runs of one projection and mixed. Converting arrays and columns must give
// the same results as converting single records, with every instruction set.
#include <cstring>
#include <vector>

#include "fuzz/draw.h"
#include "systems/convert_columns.h"
#include "systems/convert_many.h"

namespace tessara::fuzz {
namespace {

using Records = std::vector<tagKOORD>;

constexpr std::size_t COUNT = 40;

// Repeats of one record, sometimes with a changed number in its payload.
Records DrawRun(ByteReader& bytes) {
    tagKOORD record = DrawRecord(bytes);
    Records records;
    while (records.size() < COUNT) {
        if (bytes.Below(4) == 0) {
            const double number = bytes.Number();
            std::memcpy(record.payload + sizeof number * bytes.Below(7), &number, sizeof number);
        }
        if (bytes.Below(16) == 0) record = DrawRecord(bytes);
        records.push_back(record);
    }
    return records;
}

void ConvertArrays(const Records& sources, const Records& targets, RangeCheck check) {
    Records single = targets;
    std::vector<KoordStatus> singleStatus(COUNT), status(COUNT);
    for (std::size_t i = 0; i < COUNT; ++i)
        singleStatus[i] = ConvertRecord(sources[i], &single[i], check);
    for (const InstructionSet set : INSTRUCTION_SETS) {
        if (!IsSupported(set)) continue;
        Records many = targets;
        ConvertMany(sources.data(), many.data(), COUNT, check, status.data(), set);
        Require(status == singleStatus);
        Require(std::memcmp(many.data(), single.data(), COUNT * sizeof(tagKOORD)) == 0);
    }
}

// Reads the payloads as columns in place and compares the statuses of the results.
void ConvertColumnsOf(const Records& sources, const tagKOORD& target, RangeCheck check) {
    tagKOORD source = sources.front();
    std::vector<double> numbers(COLUMN_COUNT * COUNT), found(COLUMN_COUNT * COUNT);
    std::vector<KoordStatus> plain(COUNT), status(COUNT);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        std::memcpy(&numbers[i], sources[i % COUNT].payload + i / COUNT % 7 * sizeof(double), sizeof(double));
    SourceColumns from;
    TargetColumns to;
    for (std::size_t i = 0; i < COLUMN_COUNT; ++i) {
        from.fields[i] = {&numbers[i * COUNT], sizeof(double)};
        to.fields[i] = {&found[i * COUNT], sizeof(double)};
    }
    to.status = {plain.data(), sizeof(KoordStatus)};
    ConvertColumns(&source, &from, &target, &to, COUNT, check, InstructionSet::Plain);
    const std::vector<double> expected = found;
    to.status.first = status.data();
    ConvertColumns(&source, &from, &target, &to, COUNT, check, BestInstructionSet());
    Require(status == plain);
    Require(std::memcmp(found.data(), expected.data(), found.size() * sizeof(double)) == 0);
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara::fuzz;
    ByteReader bytes(data, size);
    const auto check = bytes.Below(2) == 0 ? tessara::RangeCheck::Off : tessara::RangeCheck::On;
    const Records sources = DrawRun(bytes);
    const Records targets = DrawRun(bytes);
    ConvertArrays(sources, targets, check);
    ConvertColumnsOf(sources, targets.front(), check);
    return 0;
}
