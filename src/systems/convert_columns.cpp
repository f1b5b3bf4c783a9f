#include "systems/convert_columns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include "columns/strided.h"
#include "numerics/rounding.h"
#include "systems/block_conversion.h"
#include "systems/conversion.h"
#include "systems/not_a_number.h"
#include "systems/output_values.h"

namespace tessara {
namespace {

constexpr OutputField CONE_COLUMNS[]{
    {"easting", OutputKind::Metres, offsetof(LambertCCPayload, easting)},
    {"northing", OutputKind::Metres, offsetof(LambertCCPayload, northing)},
};

bool IsComplete(KoordStatus status) {
    return status == KOORD_OK || status == KOORD_ERR_ZONE_DISTANT;
}

// In a record that has one.
void SetHeight(tagKOORD* record, double height) {
    if (record->type != KOORD_GEODEZ && record->type != KOORD_GEODEZMIN) return;
    const std::size_t offset =
        record->type == KOORD_GEODEZ ? offsetof(GeodezPayload, height) : offsetof(GeodezMinPayload, height);
    std::memcpy(record->payload + offset, &height, sizeof height);
}

class ColumnConversion {
  public:
    ColumnConversion(const tagKOORD& source, const SourceColumns& from, const tagKOORD& target,
                     const TargetColumns& to, RangeCheck check, InstructionSet set)
        : source_(source),
          target_(target),
          from_(from),
          to_(to),
          check_(check),
          set_(set),
          sourceFields_(System_Columns(static_cast<std::int32_t>(source.type))),
          targetFields_(System_Columns(static_cast<std::int32_t>(target.type))) {
        hasDatums_ = HaveDatums(source, target);
        if (!hasDatums_) return;
        single_.Prepare(source, target);
        blocks_.Prepare(single_, source, target, check);
        std::array<tagKOORD, Block::SIZE> targets;
        targets.fill(target);
        if (blocks_.IsWorthwhile()) blocks_.LoadWanted(targets, block_);
    }

    // Some rows, at most Block::SIZE; the first status that isn't KOORD_OK.
    KoordStatus Convert(std::size_t first, std::size_t rows) {
        const bool inBlocks = hasDatums_ && blocks_.IsWorthwhile();
        ReadHeights(first, rows);
        if (inBlocks) ComputeBlock(first, rows);
        // Target columns may be source columns: all rows are read before one is written.
        for (const std::size_t row : FindSingles(rows, inBlocks))
            ConvertOne(first, row);
        Write(first, rows, inBlocks);
        const auto end = statuses_.begin() + static_cast<std::ptrdiff_t>(rows);
        const auto failure =
            std::find_if(statuses_.begin(), end, [](KoordStatus status) { return status != KOORD_OK; });
        return failure != end ? *failure : KOORD_OK;
    }

  private:
    // The rows that no block has computed.
    std::span<const std::size_t> FindSingles(std::size_t rows, bool inBlocks) {
        std::size_t count = 0;
        for (std::size_t row = 0; row < rows; ++row) {
            singleRows_[count] = row;
            count += static_cast<std::size_t>(!inBlocks || block_.IsSpecial(row));
        }
        singles_ = {singleRows_.data(), count};
        return singles_;
    }

    void ReadHeights(std::size_t first, std::size_t rows) {
        const StridedSource heights(from_.height, first);
        if (heights.Exists()) {
            heights.CopyNumbers(rows, heights_.data());
        } else {
            std::fill_n(heights_.begin(), rows, 0.0);
        }
    }

    // False for a number that doesn't fit.
    bool ReadRecord(std::size_t first, std::size_t row, tagKOORD* record) const {
        bool fits = true;
        *record = source_;
        for (std::size_t i = 0; i < sourceFields_.size(); ++i) {
            const OutputField& field = sourceFields_[i];
            const StridedSource column(from_.fields[i], first);
            if (!column.Exists()) continue;
            if (IsOfLetters(field)) {
                std::memcpy(record->payload + field.offset, column.Letters(row), field.count);
            } else {
                fits = SetOutputValue(record, field, column.Number(row)) && fits;
            }
        }
        SetHeight(record, heights_[row]);
        return fits;
    }

    void ComputeBlock(std::size_t first, std::size_t rows) {
        blocks_.Clear(block_, rows);
        if (const BlockForm* const form = single_.From().blocks; form != nullptr) {
            ReadColumns(*form, first, rows);
            if (form->fromFields != nullptr) form->fromFields(block_, rows, source_);
            blocks_.Admit(block_, rows);
        } else {
            std::array<tagKOORD, Block::SIZE> records;
            for (std::size_t row = 0; row < rows; ++row)
                block_.Refuse(row, !ReadRecord(first, row, &records[row]));
            blocks_.Load({records.data(), rows}, block_);
        }
        blocks_.Compute(block_, rows, set_);
        if (source_.type == KOORD_ECEF) std::copy_n(block_.height, rows, heights_.begin());
        if (const BlockForm* const form = single_.To().blocks; form != nullptr) {
            if (form->toFields != nullptr) form->toFields(block_, rows, target_);
            std::fill_n(statuses_.begin(), rows, KOORD_OK);
        } else {
            std::fill_n(results_.begin(), rows, target_);
            blocks_.Store(block_, {results_.data(), rows}, {statuses_.data(), rows});
        }
    }

    void ReadColumns(const BlockForm& form, std::size_t first, std::size_t rows) {
        for (std::size_t i = 0; i < form.columns.size(); ++i) {
            const OutputField& field = sourceFields_[i];
            const StridedSource column(from_.fields[i], first);
            double* const numbers = block_.*form.columns[i];
            if (IsOfLetters(field)) {
                ReadLetters(form, column, field, rows, numbers);
            } else if (!column.Exists()) {
                std::fill_n(numbers, rows, OutputValue(source_, field));
            } else {
                column.CopyNumbers(rows, numbers);
                // References are made of whole numbers, whatever is behind the point.
                if (!IsWhole(field) || form.fromFields != nullptr) continue;
                for (std::size_t row = 0; row < rows; ++row)
                    numbers[row] = Trunc(numbers[row]);
            }
        }
    }

    void ReadLetters(const BlockForm& form, const StridedSource& column, const OutputField& field,
                     std::size_t rows, double* numbers) {
        const StridedSource always({source_.payload + field.offset, 0}, 0);
        const StridedSource& letters = column.Exists() ? column : always;
        if (form.isSouth != nullptr) {
            for (std::size_t row = 0; row < rows; ++row)
                numbers[row] = form.isSouth(letters.Letters(row)[0]) ? 1.0 : 0.0;
        } else if (field.count == 1) {
            for (std::size_t row = 0; row < rows; ++row)
                numbers[row] = NumberOfLetters({letters.Letters(row)[0], '\0'});
        } else {
            for (std::size_t row = 0; row < rows; ++row)
                numbers[row] = NumberOfLetters({letters.Letters(row)[0], letters.Letters(row)[1]});
        }
    }

    // By itself, from the columns of the source to a record.
    void ConvertOne(std::size_t first, std::size_t row) {
        tagKOORD record;
        results_[row] = target_;
        if (!ReadRecord(first, row, &record)) {
            statuses_[row] = KOORD_ERR_GENERAL;
        } else if (!hasDatums_) {
            statuses_[row] = KOORD_ERR_DATUM;
        } else {
            statuses_[row] = single_.Convert(record, &results_[row], check_);
            if (record.type == KOORD_ECEF) heights_[row] = HeightOf(record);
            SetHeight(&results_[row], heights_[row]);
        }
    }

    [[nodiscard]] double HeightOf(const tagKOORD& record) const {
        double position[3] = {};
        static_cast<void>(single_.Read(record, position));
        return position[2];
    }

    void Write(std::size_t first, std::size_t rows, bool inBlocks) {
        const BlockForm* const form = hasDatums_ ? single_.To().blocks : nullptr;
        const bool fromBlock = inBlocks && form != nullptr;
        for (std::size_t i = 0; i < targetFields_.size(); ++i) {
            const StridedTarget column(to_.fields[i], first);
            if (!column.Exists()) continue;
            if (IsOfLetters(targetFields_[i])) {
                WriteLetters(column, targetFields_[i], rows, fromBlock ? block_.*form->columns[i] : nullptr);
            } else {
                WriteNumbers(column, targetFields_[i], rows, fromBlock ? block_.*form->columns[i] : nullptr);
            }
        }
        const StridedTarget heights(to_.height, first);
        if (heights.Exists()) {
            for (std::size_t row = 0; row < rows; ++row)
                heights.Put(row, IsComplete(statuses_[row]) ? WithOneNan(heights_[row]) : NOT_A_NUMBER);
        }
        const StridedTarget statuses(to_.status, first);
        for (std::size_t row = 0; statuses.Exists() && row < rows; ++row)
            statuses.Put(row, statuses_[row]);
    }

    // From the block's column, or from the records.
    void WriteNumbers(const StridedTarget& column, const OutputField& field, std::size_t rows,
                      double* numbers) {
        const auto numberOf = [&](std::size_t row) {
            return IsComplete(statuses_[row]) ? OutputValue(results_[row], field) : NOT_A_NUMBER;
        };
        if (numbers != nullptr) {
            for (const std::size_t row : singles_)
                numbers[row] = numberOf(row);
            return column.PutNumbers(rows, numbers);
        }
        double ownNumbers[Block::SIZE];
        for (std::size_t row = 0; row < rows; ++row)
            ownNumbers[row] = numberOf(row);
        column.PutNumbers(rows, ownNumbers);
    }

    void WriteLetters(const StridedTarget& column, const OutputField& field, std::size_t rows,
                      const double* numbers) {
        constexpr char none[COLUMN_COUNT] = {};
        const bool isHemisphere = numbers != nullptr && single_.To().blocks->isSouth != nullptr;
        for (std::size_t row = 0; row < rows; ++row) {
            if (numbers != nullptr && !block_.IsSpecial(row)) {
                const LetterPair letters = isHemisphere ? LetterPair{numbers[row] != 0.0 ? 'S' : 'N', '\0'}
                                                        : LettersOf(numbers[row]);
                column.Letters(row)[0] = letters.first;
                if (field.count > 1) column.Letters(row)[1] = letters.second;
                continue;
            }
            const void* const letters = IsComplete(statuses_[row])
                                            ? static_cast<const void*>(results_[row].payload + field.offset)
                                            : none;
            std::memcpy(column.Letters(row), letters, field.count);
        }
    }

    const tagKOORD source_, target_;
    const SourceColumns& from_;
    const TargetColumns& to_;
    RangeCheck check_;
    InstructionSet set_;
    std::span<const OutputField> sourceFields_, targetFields_;
    bool hasDatums_;
    Conversion single_;
    BlockConversion blocks_;
    Block block_{};
    std::array<std::size_t, Block::SIZE> singleRows_;
    std::span<const std::size_t> singles_;
    std::array<tagKOORD, Block::SIZE> results_;
    std::array<KoordStatus, Block::SIZE> statuses_;
    std::array<double, Block::SIZE> heights_;
};

bool HasSource(const SourceColumns& from, std::int32_t type) {
    const auto fields = System_Columns(type);
    const auto exists = [](const SourceColumn& column) { return column.first != nullptr; };
    return fields.empty() || std::any_of(from.fields, from.fields + fields.size(), exists);
}

}  // namespace

std::span<const OutputField> System_Columns(std::int32_t type) {
    return type == KOORD_LAMBERTCC ? CONE_COLUMNS : System_Outputs(type);
}

KoordStatus ConvertColumns(const tagKOORD* source, const SourceColumns* from, const tagKOORD* target,
                           const TargetColumns* to, std::size_t count, RangeCheck check, InstructionSet set) {
    const bool isComplete = source != nullptr && from != nullptr && target != nullptr && to != nullptr &&
                            HasSource(*from, static_cast<std::int32_t>(source->type));
    if (!isComplete) return KOORD_ERR_GENERAL;
    ColumnConversion conversion(*source, *from, *target, *to, check, set);
    KoordStatus first = KOORD_OK;
    for (std::size_t done = 0; done < count; done += Block::SIZE) {
        const KoordStatus status = conversion.Convert(done, std::min(count - done, Block::SIZE));
        if (first == KOORD_OK) first = status;
    }
    return first;
}

KoordStatus KoordConvertColumns(const tagKOORD* source, const SourceColumns* from, const tagKOORD* target,
                                const TargetColumns* to, std::size_t count, std::int32_t checkRange) {
    return ConvertColumns(source, from, target, to, count, CheckOf(checkRange), BestInstructionSet());
}

}  // namespace tessara
