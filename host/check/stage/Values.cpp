// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/stage/Values.h"

#include "host/check/stage/VectorOf.h"
#include "host/workbench/values/ValueText.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/StringList.h"

namespace host::check::stage {

namespace {

olm::core::StringList usualTexts()
{
    olm::core::StringList texts;
    texts.append("10.0.0.1");
    texts.append("10.0.0.2");
    return texts;
}

olm::core::LaserScanMessage usualScan()
{
    olm::core::LaserScanMessage scan;
    scan.sequenceNumber = 1;
    scan.frameId = "laser";
    scan.minimumAngle = -1;
    scan.maximumAngle = 1;
    scan.angleIncrement = 1;
    scan.maximumRange = 5;
    scan.ranges = vectorOf<float>({1, 2, 3});
    scan.intensities = vectorOf<float>({10, 20, 30});
    return scan;
}

} // namespace

const std::vector<Variant>& usualValues()
{
    static const std::vector<Variant> values{true,
                                             false,
                                             0,
                                             1,
                                             2,
                                             7,
                                             -1,
                                             3U,
                                             50,
                                             0.5F,
                                             2.5,
                                             std::string("10.0.0.1"),
                                             std::string("7"),
                                             QString("a text"),
                                             usualTexts(),
                                             vectorOf<float>({1, 2, 3, 4, 5, 6}),
                                             vectorOf<unsigned int>({640, 480}),
                                             usualScan(),
                                             Variant()};
    return values;
}

QString inWords(const Variant& value)
{
    if (value.isEmpty())
        return QStringLiteral("an empty value");
    return QStringLiteral("%1 %2").arg(workbench::values::typeName(value),
                                       workbench::values::inWords(value));
}

QString inWords(const Variable& variable, const Variant& value)
{
    return QStringLiteral("%1 to %2").arg(inWords(variable), inWords(value));
}

} // namespace host::check::stage
