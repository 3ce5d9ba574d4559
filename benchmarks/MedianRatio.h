// The ratio of the times of two pieces of work, measured so that a noisy machine does not spoil it.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace bench {

template <class Work>
double SecondsOf(int repetitions, Work work) {
    auto const start = std::chrono::steady_clock::now();
    for (int i = 0; i < repetitions; ++i)
        work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The median over rounds that alternate both.
template <class Work, class Base>
double MedianRatio(Work work, Base base) {
    constexpr int kRounds = 15;
    constexpr double kSecondsOfRound = 0.03;
    double const once = SecondsOf(1, base) + SecondsOf(1, work); // warms up, too
    int const repetitions = std::max(1, static_cast<int>(kSecondsOfRound / once));
    int const rounds = repetitions == 1 ? kRounds / 3 : kRounds;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        double const baseSeconds = SecondsOf(repetitions, base);
        ratios.push_back(SecondsOf(repetitions, work) / baseSeconds);
    }
    std::nth_element(ratios.begin(), ratios.begin() + rounds / 2, ratios.end());
    return ratios[static_cast<std::size_t>(rounds / 2)];
}

// The mark after a ratio in a table.
inline char Mark(double value, double limit) {
    return value <= limit ? ' ' : '!';
}

} // namespace bench
