// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/plots/Numbers.h"

#include "olm/core/Vector.h"
#include "olm/core/variant/Held.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>

#include <algorithm>
#include <cmath>
#include <optional>

namespace host::workbench::plots {

using olm::core::Vector;
using olm::core::variant::held;
using olm::core::variant::Variant;

namespace {

QString element(const QString& path, int index)
{
    return path + '[' + QString::number(index) + ']';
}

/// Of CBOR, where an array of numbers may be one block.
std::optional<QVector<float>> typedNumbers(const QCborValue& value)
{
    return value.isTag() ? rosbridge::protocol::toFloats(value, nullptr) : std::nullopt;
}

class Lister
{
public:
    QStringList paths;

    void list(const QCborValue& value, const QString& path, int depth)
    {
        if (paths.size() >= mostNumbers || depth > deepestMessage || path.size() > longestPath)
            return;
        if (value.isMap()) {
            const QCborMap map = value.toMap();
            for (auto field = map.cbegin(); field != map.cend(); ++field) {
                const QString name = field.key().toString();
                list(field.value(), path.isEmpty() ? name : path + '.' + name, depth + 1);
            }
        } else if (value.isArray()) {
            const QCborArray array = value.toArray();
            for (int i = 0; i < array.size() && array.size() <= mostElements; ++i)
                list(array.at(i), element(path, i), depth + 1);
        } else if (const auto numbers = typedNumbers(value)) {
            for (int i = 0; i < numbers->size() && numbers->size() <= mostElements; ++i)
                paths += element(path, i);
        } else if (value.isInteger() || value.isDouble() || value.isBool() || value.isNull()) {
            paths += path;
        }
    }
};

double toNumber(const QCborValue& value)
{
    if (value.isBool())
        return value.toBool() ? 1 : 0;
    return value.toDouble(std::nan("")); // integers as well
}

/// The name up to the next dot or bracket, which is taken off the path.
QString takeName(QStringView& path)
{
    qsizetype end = 0;
    while (end < path.size() && path.at(end) != QLatin1Char('.') &&
           path.at(end) != QLatin1Char('['))
        ++end;
    QString name = path.left(end).toString();
    path = path.mid(end);
    return name;
}

/// Of "[3]", which is taken off the path; -1 where that is none.
int takeIndex(QStringView& path)
{
    const auto end = path.indexOf(QLatin1Char(']'));
    bool isNumber = false;
    const int index = path.mid(1, std::max<qsizetype>(end - 1, 0)).toString().toInt(&isNumber);
    path = path.mid(end + 1);
    return isNumber && end > 0 && index >= 0 ? index : -1;
}

double numberIn(const QCborValue& value, QStringView path)
{
    if (path.isEmpty())
        return toNumber(value);
    if (path.startsWith(QLatin1Char('['))) {
        const int index = takeIndex(path);
        if (index < 0)
            return std::nan("");
        if (const auto numbers = typedNumbers(value))
            return path.isEmpty() && index < numbers->size() ? double(numbers->at(index))
                                                             : std::nan("");
        return value.isArray() ? numberIn(value.toArray().at(index), path) : std::nan("");
    }
    if (path.startsWith(QLatin1Char('.')))
        path = path.mid(1);
    const QString name = takeName(path);
    return value.isMap() && !name.isEmpty() ? numberIn(value.toMap().value(name), path)
                                            : std::nan("");
}

template <class T>
std::optional<double> scalar(const Variant& value)
{
    const T* const number = held<T>(value.any());
    return number ? std::optional<double>(static_cast<double>(*number)) : std::nullopt;
}

std::optional<double> scalarIn(const Variant& value)
{
    for (const auto& read :
         {scalar<bool>, scalar<int>, scalar<unsigned int>, scalar<float>, scalar<double>}) {
        if (const auto number = read(value))
            return number;
    }
    return std::nullopt;
}

/// Calls @p use with the vector that is held, if one is.
template <class Use>
void withVector(const Variant& value, const Use& use)
{
    if (const auto* floats = held<Vector<float>>(value.any()))
        use(*floats);
    else if (const auto* integers = held<Vector<unsigned int>>(value.any()))
        use(*integers);
}

} // namespace

QStringList numbersIn(const QCborMap& message)
{
    Lister lister;
    lister.list(message, QString(), 0);
    return lister.paths;
}

QStringList numbersIn(const Variant& value)
{
    if (scalarIn(value))
        return {QString()};
    QStringList paths;
    withVector(value, [&](const auto& vector) {
        for (unsigned int i = 0; i < vector.size() && vector.size() <= mostElements; ++i)
            paths += element(QString(), static_cast<int>(i));
    });
    return paths;
}

double numberAt(const QCborMap& message, const QString& path)
{
    return path.isEmpty() ? std::nan("") : numberIn(message, path);
}

double numberAt(const Variant& value, const QString& path)
{
    if (path.isEmpty())
        return scalarIn(value).value_or(std::nan(""));
    double number = std::nan("");
    QStringView rest(path);
    const int index = takeIndex(rest);
    withVector(value, [&](const auto& vector) {
        if (index >= 0 && rest.isEmpty() && index < static_cast<int>(vector.size()))
            number = static_cast<double>(vector[index]);
    });
    return number;
}

} // namespace host::workbench::plots
