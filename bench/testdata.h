#pragma once

#include "platform/dao/dao.h"

#include <functional>

// Data of the size that the budgets speak of, the same in each run.
namespace vorel::bench {

struct AppointmentData {
    int rows = 100000;          // in all, over ten years around the day of the benchmark
    int seriesRows = 2000;      // of them rows of weekly series of 50 rows, half of them past
};

// The day on which the benchmarks run: 22 November 2026.
basic::DateTime benchDay();
// Makes the main file at the path as a first start does, and sets the clock, the region and the state for it.
void makeMainFile(const QString &path);
void addAppointments(const QString &path, const AppointmentData &data);
// Milliseconds of nine runs of a step.
std::vector<double> timesOf(const std::function<void()> &step);
// "name: 12.3 ms, 0.12 of the budget of 100 ms", the median of the runs.
void report(const QString &name, std::vector<double> milliseconds, double budget);

}
