#include "bench/peers/array_contests.h"

#include <atomic>
#include <chrono>
#include <cstring>
#include <limits>
#include <thread>

#include "bench/peers/array_timing.h"
#include "bench/peers/projection.h"
#include "bench/peers/record_values.h"
#include "tessara/kernel/columns.h"
#include "tessara/kernel/convert.h"

namespace tessara::bench {
namespace {

// Elapsed time, for work of several threads.
template <class Work>
double DurationOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
    return taken.count();
}

// How much faster two threads are on halves of a few positions than one. Of many short turns the fastest
// counts, in which no other program has taken a core.
template <class Convert>
double SpeedOfTwoThreads(Convert convertPart) {
    constexpr std::size_t count = 16384;
    constexpr int turns = 1000;
    std::atomic<int> begun{0}, ended{0};
    std::thread other([&] {
        for (int turn = 1; turn <= turns; ++turn) {
            while (begun < turn) {
            }
            convertPart(count / 2, count / 2);
            ended = turn;
        }
    });
    double one = std::numeric_limits<double>::infinity();
    double two = one;
    for (int turn = 1; turn <= turns; ++turn) {
        one = std::min(one, DurationOf([&] { convertPart(0, count); }));
        two = std::min(two, DurationOf([&] {
                           begun = turn;
                           convertPart(0, count / 2);
                           while (ended < turn) {
                           }
                       }));
    }
    other.join();
    return one / two;
}

// The fields of a type as consecutive columns: doubles, and one byte per letter.
class FieldColumns {
  public:
    explicit FieldColumns(std::uint32_t type)
        : fields_(System_Columns(static_cast<std::int32_t>(type))), values_(fields_.size() * COUNT) {}

    void Fill(const std::vector<tagKOORD>& records) {
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            for (std::size_t row = 0; row < COUNT; ++row)
                At(i)[row] = ValueOf(records[row], fields_[i]);
        }
    }

    [[nodiscard]] SourceColumns Sources() {
        SourceColumns columns;
        for (std::size_t i = 0; i < fields_.size(); ++i)
            columns.fields[i] = {At(i), sizeof(double)};
        return columns;
    }

    [[nodiscard]] TargetColumns Targets() {
        TargetColumns columns;
        for (std::size_t i = 0; i < fields_.size(); ++i)
            columns.fields[i] = {At(i), sizeof(double)};
        return columns;
    }

    // Returns a column by name.
    [[nodiscard]] const double* Named(const char* name) {
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            if (std::strcmp(fields_[i].name, name) == 0) return At(i);
        }
        return nullptr;
    }

  private:
    double* At(std::size_t field) { return values_.data() + field * COUNT; }

    static double ValueOf(const tagKOORD& record, const OutputField& field) {
        double value = 0.0;
        if (field.kind == OutputKind::Letters) {
            std::memcpy(&value, record.payload + field.offset, field.count);
        } else if (field.kind == OutputKind::Whole16) {
            std::int16_t whole;
            std::memcpy(&whole, record.payload + field.offset, sizeof whole);
            value = whole;
        } else {
            std::memcpy(&value, record.payload + field.offset, sizeof value);
        }
        return value;
    }

    std::span<const OutputField> fields_;
    std::vector<double> values_;
};

// PROJ works in place on radians: longitude and latitude are copied and converted before and after the call.
class ProjArrays {
  public:
    explicit ProjArrays(const ArrayTask& task)
        : task_(task), projection_(MakeProjection(task.proj)), in_(3 * COUNT), out_(3 * COUNT) {
        const std::vector<Values> values = ValuesOf(task.sources);
        for (std::size_t i = 0; i < COUNT; ++i) {
            for (std::size_t k = 0; k < 3; ++k)
                in_[k * COUNT + i] = values[i % POSITIONS][k];
        }
    }

    void Run() {
        double* const x = out_.data();
        double* const y = x + COUNT;
        double* const z = y + COUNT;
        const bool isSpatial = task_.sourceAxes == Axes::SPACE || task_.targetAxes == Axes::SPACE;
        if (task_.sourceAxes == Axes::DEGREES) {
            for (std::size_t i = 0; i < COUNT; ++i) {
                x[i] = proj_torad(in_[COUNT + i]);
                y[i] = proj_torad(in_[i]);
            }
            if (isSpatial) std::fill_n(z, COUNT, 0.0);
        } else {
            std::memcpy(x, in_.data(), (isSpatial ? 3 : 2) * COUNT * sizeof(double));
        }
        constexpr std::size_t stride = sizeof(double);
        proj_trans_generic(projection_.get(), task_.direction, x, stride, COUNT, y, stride, COUNT,
                           isSpatial ? z : nullptr, stride, isSpatial ? COUNT : 0, nullptr, 0, 0);
        if (task_.targetAxes == Axes::DEGREES) {
            for (std::size_t i = 0; i < COUNT; ++i) {
                x[i] = proj_todeg(x[i]);
                y[i] = proj_todeg(y[i]);
            }
        }
    }

    [[nodiscard]] Values ResultOf(std::size_t i) const {
        const Values v{out_[i], out_[COUNT + i], out_[2 * COUNT + i]};
        if (task_.targetAxes == Axes::DEGREES) return {v[1], v[0], 0.0};
        return {v[0], v[1], task_.targetAxes == Axes::SPACE ? v[2] : 0.0};
    }

  private:
    const ArrayTask& task_;
    Projection projection_;
    std::vector<double> in_, out_;
};

void RequireAgreement(const ArrayTask& task, const std::vector<tagKOORD>& records, const ProjArrays& proj) {
    const Kind kind = task.targetAxes == Axes::DEGREES ? Kind::DEGREES : Kind::METRES;
    for (std::size_t i = 0; i < POSITIONS; ++i) {
        const double difference = DistanceInMetres(kind, ValuesOf(records[i]), proj.ResultOf(i));
        if (!(difference <= task.tolerance))
            Fail(task.name + " in arrays: PROJ differs by " + std::to_string(difference) + " m");
    }
}

// The columns are the fields of the records.
void RequireTheSame(const ArrayTask& task, const std::vector<tagKOORD>& records, FieldColumns& columns) {
    FieldColumns expected(task.target.type);
    expected.Fill(records);
    for (const OutputField& field : System_Columns(static_cast<std::int32_t>(task.target.type))) {
        if (std::memcmp(columns.Named(field.name), expected.Named(field.name), COUNT * sizeof(double)) != 0)
            Fail(task.name + ": columns aren't what records are");
    }
}

}  // namespace

double TimeOfCopying() {
    const std::vector<tagKOORD> from(COUNT, MakeKoord(DATUM_WGS84, KOORD_GEODEZ));
    std::vector<tagKOORD> to = from;
    std::vector<double> times;
    for (std::size_t run = 0; run < RUNS; ++run)
        times.push_back(TimeOf([&] { std::memcpy(to.data(), from.data(), COUNT * sizeof(tagKOORD)); }));
    return Median(times);
}

ArrayFigures TimeArrays(const ArrayTask& task) {
    const std::vector<tagKOORD> sources = Repeated(task.sources);
    std::vector<tagKOORD> targets(COUNT, task.target);
    FieldColumns from(task.sources.front().type), to(task.target.type);
    from.Fill(sources);
    const SourceColumns sourceColumns = from.Sources();
    const TargetColumns targetColumns = to.Targets();
    ProjArrays proj(task);

    const auto convertPart = [&](std::size_t first, std::size_t count) {
        if (KoordConvertMany(&sources[first], &targets[first], count, task.checkRange, nullptr) != KOORD_OK)
            Fail(task.name + ": a position fails");
    };
    std::vector<double> records, columns, peer;
    for (std::size_t run = 0; run < RUNS; ++run) {
        records.push_back(TimeOf([&] { convertPart(0, COUNT); }));
        columns.push_back(TimeOf([&] {
            KoordConvertColumns(&task.sources.front(), &sourceColumns, &task.target, &targetColumns, COUNT,
                                task.checkRange);
        }));
        peer.push_back(TimeOf([&] { proj.Run(); }));
    }
    RequireAgreement(task, targets, proj);
    RequireTheSame(task, targets, to);
    return {Median(records),
            Median(columns),
            Median(peer),
            SpeedOfTwoThreads(convertPart),
            *std::min_element(columns.begin(), columns.end()),
            *std::max_element(columns.begin(), columns.end())};
}

void PrintArrayHeading(double copying) {
    std::printf("\nCopying a record takes %.1f ns.\n\n", copying);
    std::printf("| %-22s | %7s | %7s | %13s | %7s | %5s | %11s | %7s |\n", "ns a position in arrays",
                "records", "columns", "(all runs)", "PROJ", "ratio", "two threads", "copying");
    std::printf(
        "|:------------------------|--------:|--------:|--------------:|--------:|------:|------------:|-----"
        "---:|\n");
}

void PrintArrayRow(const std::string& name, const ArrayFigures& f, double copying) {
    std::printf("| %-23s | %7.1f | %7.1f | %5.1f - %5.1f | %7.1f | %5.2f | %11.2f | %6.0f%% |\n",
                name.c_str(), f.records, f.columns, f.lowest, f.highest, f.proj, f.columns / f.proj,
                f.twoThreads, 100.0 * copying / f.records);
    std::fflush(stdout);
}

}  // namespace tessara::bench
