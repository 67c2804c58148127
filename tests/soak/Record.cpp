// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "Record.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr double mebibyte = 1024.0 * 1024.0;

/// As it is printed.
double scaled(Usage::Quantity quantity, double value)
{
    return Usage::isMemory(quantity) ? value / mebibyte : value;
}

double median(const std::vector<double>& sorted)
{
    return sorted[sorted.size() / 2];
}

template <class Visit>
void forEachQuantity(const Visit& visit)
{
    for (int i = 0; i < Usage::QuantityCount; ++i)
        visit(static_cast<Usage::Quantity>(i));
}

} // namespace

void Record::add(const Usage& usage)
{
    m_usages.push_back(usage);
}

void Record::printLast(double minutes) const
{
    if (m_usages.size() == 1) {
        std::printf("%8s%8s", "minute", "cycle");
        forEachQuantity([](Usage::Quantity each) { std::printf("%15s", Usage::name(each)); });
        std::printf("\n");
    }
    std::printf("%8.2f%8zu", minutes, m_usages.size());
    forEachQuantity([this](Usage::Quantity each) {
        std::printf("%15.*f", Usage::isMemory(each) ? 2 : 0,
                    scaled(each, m_usages.back().values[each]));
    });
    std::printf("\n");
    std::fflush(stdout);
}

bool Record::judge() const
{
    bool isLevel = true;
    std::printf("\nmedians of %zu cycles each\n", m_usages.size() / 5);
    std::printf("%-15s%14s%14s%14s\n", "", "second fifth", "last fifth", "at most");
    forEachQuantity([&](Usage::Quantity each) {
        const std::vector<double> second = sorted(each, 1);
        const double early = median(second);
        const double late = median(sorted(each, 4));
        const double limit = Usage::isMemory(each) ? early * (1 + Usage::tolerance(each)) + mebibyte
                                                   : second.back() + Usage::byChance(each);
        const bool hasRisen = Usage::isJudged(each) && late > limit;
        const int decimals = Usage::isMemory(each) ? 2 : 0;
        std::printf("%-15s%14.*f%14.*f", Usage::name(each), decimals, scaled(each, early), decimals,
                    scaled(each, late));
        if (Usage::isJudged(each))
            std::printf("%14.*f   %s\n", decimals, scaled(each, limit),
                        hasRisen ? "HAS RISEN" : "level");
        else
            std::printf("%14s   not judged with a sanitizer\n", "");
        isLevel = isLevel && !hasRisen;
    });
    return isLevel;
}

std::vector<double> Record::sorted(Usage::Quantity quantity, std::size_t fifth) const
{
    std::vector<double> values;
    for (std::size_t i = m_usages.size() * fifth / 5; i < m_usages.size() * (fifth + 1) / 5; ++i)
        values.push_back(m_usages[i].values[quantity]);
    std::sort(values.begin(), values.end());
    return values;
}
