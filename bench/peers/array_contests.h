// The same tasks on a million positions in one call: arrays of records and columns beside PROJ's arrays.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/peers/contestants.h"

namespace tessara::bench {

struct ArrayTask {
    std::string name;
    std::vector<tagKOORD> sources;  // POSITIONS of them, which the arrays repeat
    tagKOORD target;
    std::int32_t checkRange;
    std::string proj;
    PJ_DIRECTION direction;
    Axes sourceAxes, targetAxes;
    double tolerance;  // metres by which the libraries may differ
};

// The tasks by subject.
void AddGridArrays(std::vector<ArrayTask>* tasks);
void AddShiftArrays(std::vector<ArrayTask>* tasks);

struct ArrayFigures {
    double records, columns, proj;  // nanoseconds a position, medians
    double twoThreads;              // how many times as fast they convert the records, half of them each
    double lowest, highest;         // of the runs of columns
};

// Nanoseconds in which a record is copied, which is what memory allows.
[[nodiscard]] double TimeOfCopying();

// Ends the program where the libraries disagree.
[[nodiscard]] ArrayFigures TimeArrays(const ArrayTask& task);

void PrintArrayHeading(double copying);
void PrintArrayRow(const std::string& name, const ArrayFigures& figures, double copying);

// Geodesics in columns beside single calls, and prints them.
void CompareGeodesicArrays(const std::function<bool(const std::string&)>& isWanted);

}  // namespace tessara::bench
