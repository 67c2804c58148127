// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/values/ValueText.h"

#include "host/device/connection/SimulationDirectExecRole.h"
#include "host/device/trace/ClassName.h"
#include "host/device/variables/Latin1.h"
#include "host/workbench/values/ScanText.h"
#include "olm/core/LaserScanMessage.h"
#include "olm/core/StringList.h"
#include "olm/core/Vector.h"
#include "olm/core/variant/Held.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>

#include <charconv>
#include <limits>
#include <string>
#include <type_traits>

namespace host::workbench::values {

using device::variables::fromLatin1;
using device::variables::toLatin1;

namespace {

using olm::core::LaserScanMessage;
using olm::core::StringList;
using olm::core::Vector;
using olm::core::variant::held;
using olm::core::variant::Variant;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(host::workbench::ValueText)
};

constexpr unsigned int longestVector = 12;
constexpr int longestText = 200;

// The shortest text that reads back as the same number, in every locale.
template <class Number>
QString print(Number number)
{
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
    return QString::fromLatin1(buffer, static_cast<int>(result.ptr - buffer));
}

QString print(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString print(const std::string& text)
{
    return fromLatin1(text);
}

QString print(const QString& text)
{
    return text;
}

template <class T>
QString print(const Vector<T>& vector, unsigned int count)
{
    QStringList numbers;
    for (unsigned int i = 0; i < count; ++i)
        numbers += print(vector.data()[i]);
    return numbers.join(QStringLiteral(", "));
}

template <class T>
QString print(const Vector<T>& vector)
{
    return print(vector, vector.size());
}

QString print(const StringList& list)
{
    QJsonArray array;
    for (const std::string& text : list)
        array.append(fromLatin1(text));
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QString print(const LaserScanMessage& scan)
{
    return scanToText(scan);
}

template <class Number>
bool read(const QString& text, Number& number, QString* error)
{
    const QString trimmed = text.trimmed();
    const std::string bytes = toLatin1(trimmed);
    const char* const end = bytes.data() + bytes.size();
    const auto result = std::from_chars(bytes.data(), end, number);
    if (result.ec == std::errc() && result.ptr == end)
        return true;
    using Limits = std::numeric_limits<Number>;
    if (std::is_floating_point_v<Number>)
        *error = Text::tr("\"%1\" is not a valid number: write it as in -0.5, 1e-3, inf or nan.")
                     .arg(trimmed);
    else
        *error = Text::tr("\"%1\" is not a whole number from %2 to %3.")
                     .arg(trimmed, print(Limits::min()), print(Limits::max()));
    return false;
}

bool read(const QString& text, bool& value, QString* error)
{
    value = text == print(true);
    if (value || text == print(false))
        return true;
    *error = Text::tr("\"%1\" is not a truth value: write true or false.").arg(text);
    return false;
}

bool read(const QString& text, std::string& value, QString* error)
{
    value = toLatin1(text);
    for (const QChar c : text) {
        if (c.unicode() <= 0xff)
            continue;
        *error = Text::tr("A std::string is Latin-1 and cannot contain \"%1\": leave it out, or "
                          "choose QString.")
                     .arg(c);
        return false;
    }
    return true;
}

bool read(const QString& text, QString& value, QString*)
{
    value = text;
    return true;
}

template <class T>
bool read(const QString& text, Vector<T>& vector, QString* error)
{
    if (text.trimmed().isEmpty())
        return true;
    for (const QString& part : text.split(',')) {
        T number{};
        if (!read(part, number, error)) {
            *error = Text::tr("Number %1: %2 Numbers are separated by commas.")
                         .arg(vector.size() + 1)
                         .arg(*error);
            return false;
        }
        vector.append(number);
    }
    return true;
}

bool read(const QString& text, StringList& list, QString* error)
{
    const QString hint = Text::tr("Write a list of texts as in [\"first\", \"second\"].");
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &parseError);
    if (!document.isArray()) {
        *error = hint;
        return false;
    }
    const QJsonArray array = document.array();
    for (const QJsonValue item : array) {
        std::string bytes;
        if (!item.isString()) {
            *error = hint;
            return false;
        }
        if (!read(item.toString(), bytes, error))
            return false;
        list.append(bytes);
    }
    return true;
}

bool read(const QString& text, LaserScanMessage& scan, QString* error)
{
    const auto found = scanFromText(text, error);
    if (found)
        scan = *found;
    return found.has_value();
}

/// One line of the table of types that can be entered.
struct Type
{
    const char* name;
    bool (*holds)(const Variant& value);
    QString (*text)(const Variant& value);
    std::optional<Variant> (*value)(const QString& text, QString* error);
};

template <class T>
Type typeNamed(const char* name)
{
    return {name, [](const Variant& value) { return held<T>(value.any()) != nullptr; },
            [](const Variant& value) { return print(*held<T>(value.any())); },
            [](const QString& text, QString* error) -> std::optional<Variant> {
                T value{};
                return read(text, value, error) ? std::optional<Variant>(value) : std::nullopt;
            }};
}

const Type emptyType{
    QT_TRANSLATE_NOOP("host::workbench::ValueText", "empty"),
    [](const Variant& value) { return value.isEmpty(); }, [](const Variant&) { return QString(); },
    [](const QString& text, QString* error) -> std::optional<Variant> {
        if (text.isEmpty())
            return Variant();
        *error = Text::tr("An empty value has no text: remove it, or choose another type.");
        return std::nullopt;
    }};

const Type types[] = {
    emptyType,
    typeNamed<bool>("bool"),
    typeNamed<int>("int"),
    typeNamed<unsigned int>("unsigned int"),
    typeNamed<float>("float"),
    typeNamed<double>("double"),
    typeNamed<std::string>("std::string"),
    typeNamed<QString>("QString"),
    typeNamed<Vector<float>>("Vector<float>"),
    typeNamed<Vector<unsigned int>>("Vector<unsigned int>"),
    typeNamed<StringList>("StringList"),
    typeNamed<LaserScanMessage>("LaserScanMessage"),
};

QString cut(const QString& text)
{
    return text.size() <= longestText ? text : text.left(longestText) + QStringLiteral(" …");
}

QString quoted(const QString& text)
{
    // As a JSON string: what cannot be seen is escaped.
    const QByteArray array = QJsonDocument(QJsonArray{cut(text)}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

template <class T>
QString inWords(const Vector<T>& vector)
{
    if (vector.size() <= longestVector)
        return '[' + print(vector) + ']';
    return Text::tr("[%1, … %2 in all]").arg(print(vector, longestVector)).arg(vector.size());
}

QString inWords(const LaserScanMessage& scan)
{
    return Text::tr("scan %1 of %2, ranges: %3")
        .arg(QString::number(scan.sequenceNumber), quoted(fromLatin1(scan.frameId)),
             QString::number(scan.ranges.size()));
}

} // namespace

QString typeName(const Variant& value)
{
    const int type = enterableType(value);
    if (type == 0)
        return Text::tr(emptyType.name);
    if (type > 0)
        return QLatin1String(types[type].name);
    return device::trace::className(value.any().type()).remove(QStringLiteral("olm::core::"));
}

QString inWords(const Variant& value)
{
    if (const auto* bytes = held<std::string>(value.any()))
        return quoted(fromLatin1(*bytes));
    if (const auto* text = held<QString>(value.any()))
        return quoted(*text);
    if (const auto* vector = held<Vector<float>>(value.any()))
        return inWords(*vector);
    if (const auto* vector = held<Vector<unsigned int>>(value.any()))
        return inWords(*vector);
    if (const auto* scan = held<LaserScanMessage>(value.any()))
        return inWords(*scan);
    if (const auto* role = held<SimulationDirectExecRole>(value.any()))
        return print(static_cast<unsigned int>(*role));
    return enterableType(value) <= 0 ? typeName(value) : cut(toText(value));
}

QString inWords(std::chrono::system_clock::time_point time)
{
    const qint64 sinceEpoch =
        std::chrono::duration_cast<std::chrono::microseconds>(time.time_since_epoch()).count();
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch / 1000)
               .toString(QStringLiteral("HH:mm:ss.zzz")) +
           QStringLiteral("%1").arg(sinceEpoch % 1000, 3, 10, QLatin1Char('0'));
}

QStringList enterableTypes()
{
    QStringList names{Text::tr(emptyType.name)};
    for (std::size_t i = 1; i < std::size(types); ++i)
        names += QLatin1String(types[i].name);
    return names;
}

int enterableType(const Variant& value)
{
    for (std::size_t i = 0; i < std::size(types); ++i) {
        if (types[i].holds(value))
            return static_cast<int>(i);
    }
    return -1;
}

QString toText(const Variant& value)
{
    const int type = enterableType(value);
    return type < 0 ? QString() : types[type].text(value);
}

std::optional<Variant> fromText(int type, const QString& text, QString* error)
{
    return types[type].value(text, error);
}

} // namespace host::workbench::values
