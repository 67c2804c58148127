// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/BadValues.h"

#include "host/check/stage/VectorOf.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/StringList.h"
#include "olm/core/Vector.h"

#include <initializer_list>
#include <limits>

namespace host::check::stage {

namespace {

using olm::core::LaserScanMessage;
using olm::core::StringList;
using olm::core::Vector;
using std::numeric_limits;

constexpr int longText = 20000;              // characters
constexpr unsigned int longVector = 1000000; // elements
constexpr int manyTexts = 10000;

/// A type that no plugin has ever heard of.
struct Foreign
{
    double numbers[8] = {};
};

/// As bytes, so that a zero in the middle is part of it.
template <std::size_t size>
std::string bytes(const char (&text)[size])
{
    return std::string(text, size - 1);
}

StringList textsOf(int count, const std::string& text)
{
    StringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(text);
    return texts;
}

LaserScanMessage scanOf(float number)
{
    LaserScanMessage scan;
    scan.sequenceNumber = numeric_limits<std::uint32_t>::max();
    scan.timeStamp = numeric_limits<std::uint32_t>::max();
    scan.frameId = bytes("\0<b>\xff");
    for (float* field :
         {&scan.minimumAngle, &scan.maximumAngle, &scan.angleIncrement, &scan.timeIncrement,
          &scan.scanTime, &scan.minimumRange, &scan.maximumRange})
        *field = number;
    scan.ranges = vectorOf<float>({number, 0, number});
    return scan;
}

LaserScanMessage longScan()
{
    LaserScanMessage scan;
    scan.frameId = std::string(longText, 'x');
    scan.ranges = Vector<float>(longVector);
    scan.intensities = Vector<float>(1);
    return scan;
}

template <class T>
void addNumbers(std::vector<Variant>& values)
{
    using Limits = numeric_limits<T>;
    for (const T number : {T(0), Limits::lowest(), Limits::max()})
        values.emplace_back(number);
    if (Limits::has_infinity) {
        for (const T number : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                               Limits::denorm_min(), -T(0)})
            values.emplace_back(number);
    }
}

std::vector<Variant> all()
{
    std::vector<Variant> values{Variant(), boost::any(), Foreign(), nullptr, true, false};
    addNumbers<int>(values);
    addNumbers<unsigned int>(values);
    addNumbers<qint64>(values);
    addNumbers<float>(values);
    addNumbers<double>(values);
    for (const std::string& text :
         {std::string(), bytes("a\0b"), bytes("\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80"),
          bytes("\xff\xfe\x80"), bytes("\r\n\t\x1b"), std::string("<b>&amp;<img src=':/'>"),
          std::string("%1%n%s"), std::string("nan"), std::string("-99999999999999999999"),
          std::string(longText, 'x')})
        values.emplace_back(text);
    for (const QString& text :
         {QString(), QStringLiteral(""), QString("a") + QChar(0) + 'b', QString(QChar(0xd800)),
          QString::fromUtf8("\xe2\x80\xae\xd7\xa9\xf0\x9f\x98\x80"), QStringLiteral("<b>%1\n\t"),
          QString(longText, 'x')})
        values.emplace_back(text);
    values.insert(values.end(),
                  {StringList(), textsOf(1, ""), textsOf(manyTexts, "x"),
                   textsOf(2, bytes("\0\xff")), Vector<float>(),
                   vectorOf({numeric_limits<float>::quiet_NaN(), numeric_limits<float>::infinity(),
                             numeric_limits<float>::max()}),
                   Vector<float>(longVector), Vector<unsigned int>(), vectorOf({0U, 0U}),
                   vectorOf({numeric_limits<unsigned int>::max()}),
                   vectorOf({numeric_limits<unsigned int>::max(), 1U, 2U}),
                   Vector<unsigned int>(longVector), LaserScanMessage(),
                   scanOf(numeric_limits<float>::quiet_NaN()),
                   scanOf(numeric_limits<float>::infinity()), scanOf(numeric_limits<float>::max()),
                   longScan()});
    return values;
}

} // namespace

const std::vector<Variant>& badValues()
{
    static const std::vector<Variant> values = all();
    return values;
}

} // namespace host::check::stage
