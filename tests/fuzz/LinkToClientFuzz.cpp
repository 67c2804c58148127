// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Whatever a server sends, the link's client end gives it to whom it is for, or says what is wrong.
#include "LinkInput.h"
#include "Require.h"

#include "host/device/readers/ScanReader.h"
#include "rosbridge/client/Inbox.h"
#include "rosbridge/protocol/Codec.h"

#include <QCborArray>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <memory>

using namespace rosbridge::client;
using namespace rosbridge::protocol;

namespace {

/// Whether JSON says all of a value that it can: it has one kind of number, and none that is not
/// finite, and neither byte strings nor typed arrays.
bool isSaid(const QCborValue& value, const QCborValue& json)
{
    if (value.isDouble() && !std::isfinite(value.toDouble()))
        return json.isNull();
    if (value.isDouble() || value.isInteger())
        return (json.isDouble() || json.isInteger()) && json.toDouble() == value.toDouble();
    if (value.isByteArray())
        return json.toString() == QString::fromLatin1(value.toByteArray().toBase64());
    if (value.isTag())
        return json.isArray() == toFloats(value, nullptr).has_value();
    if (value.isUndefined())
        return json.isNull();
    if (value.isArray()) {
        const QCborArray array = value.toArray();
        const QCborArray jsonArray = json.toArray();
        return array.size() == jsonArray.size() &&
               std::equal(array.cbegin(), array.cend(), jsonArray.cbegin(), isSaid);
    }
    if (value.isMap()) {
        const QCborMap map = value.toMap();
        const QCborMap jsonMap = json.toMap();
        return map.size() == jsonMap.size() &&
               std::all_of(map.cbegin(), map.cend(), [&jsonMap](const auto& field) {
                   return isSaid(field.second, jsonMap.value(field.first.toString()));
               });
    }
    return value == json;
}

/// What was let in comes through both wire forms.
void requireRoundTrips(const QCborMap& message)
{
    const QByteArray binary = encodeBinary(message);
    const std::optional<QCborMap> fromBinary = decodeBinary(binary, nullptr);
    require(fromBinary && encodeBinary(*fromBinary) == binary); // not a number is unlike itself

    const std::optional<QCborMap> fromText = decodeText(encodeText(message), nullptr);
    require(fromText && isSaid(message, *fromText));
}

void readFloats(const QCborMap& msg)
{
    for (auto field = msg.cbegin(); field != msg.cend(); ++field) {
        QString error;
        const std::optional<QVector<float>> floats = toFloats(field.value(), &error);
        require(floats.has_value() == error.isEmpty());
        if (!floats)
            continue;
        const std::optional<QVector<float>> again = toFloats(typedArray(*floats), nullptr);
        require(again && again->size() == floats->size());
        require(floats->isEmpty() || std::memcmp(again->constData(), floats->constData(),
                                                 sizeof(float) * floats->size()) == 0);
    }
}

/// An inbox with every kind of owner: one that reads, one that ends its subscription, one that
/// asks for more, and one that deletes the inbox in between.
class Owner
{
public:
    Owner()
    {
        for (const char* id : {"call_service:1", "call_service:2"})
            call(QLatin1String(id));
        subscribe("subscribe:3", "/scan", readFloats);
        subscribe("subscribe:9", "/scan", [this](const QCborMap& msg) { readScan(msg); });
        subscribe("subscribe:4", "/scan", [this](const QCborMap&) {
            require(m_inbox->removeSubscription(QStringLiteral("subscribe:4")) ==
                    QLatin1String("/scan"));
        });
        subscribe("subscribe:5", "/rosout", [this](const QCborMap&) {
            call(QStringLiteral("call_service:6"));
            subscribe("subscribe:7", "/clock", readFloats);
        });
        subscribe("subscribe:8", "/end", [this](const QCborMap&) { m_inbox.reset(); });

        QObject::connect(m_inbox.get(), &Inbox::statusReceived, m_inbox.get(),
                         [this] { ++m_heard; });
        QObject::connect(m_inbox.get(), &Inbox::malformedReceived, m_inbox.get(),
                         [this](const QString& text) {
                             require(!text.isEmpty());
                             ++m_heard;
                         });
    }

    bool isThere() const { return m_inbox != nullptr; }

    void receive(const QCborMap& message)
    {
        m_heard = 0;
        const QString id = message.value(QLatin1String("id")).toString();
        const bool isOfCall = m_answers.count(id) > 0 && m_answers[id] == 0;
        m_inbox->receive(message);
        require(m_heard <= 1);
        const QString op = message.value(QLatin1String("op")).toString();
        require(m_heard == 1 || op == QLatin1String("publish") ||
                op == QLatin1String("service_response") ||
                (op == QLatin1String("status") && isOfCall));
    }

private:
    void call(const QString& id)
    {
        if (m_answers.count(id) > 0)
            return;
        m_answers[id] = 0;
        m_inbox->addCall(id, {QStringLiteral("/service"), [this, id](const Inbox::Result& result) {
                                  require(++m_answers[id] == 1);
                                  require(result.ok == result.error.isEmpty());
                                  readFloats(result.values);
                              }});
    }

    void readScan(const QCborMap& msg)
    {
        QString error;
        const std::optional<olm::core::LaserScanMessage> scan = m_scanReader.read(msg, &error);
        require(scan.has_value() == error.isEmpty());
        if (!scan)
            return;
        const auto ranges = toFloats(msg.value(QLatin1String("ranges")), nullptr);
        require(ranges && static_cast<unsigned int>(ranges->size()) == scan->ranges.size());
    }

    void subscribe(const char* id, const char* topic, const Inbox::Handler& handler)
    {
        m_inbox->addSubscription(QLatin1String(id), QLatin1String(topic), handler);
    }

    std::unique_ptr<Inbox> m_inbox = std::make_unique<Inbox>();
    host::device::readers::ScanReader m_scanReader;
    std::map<QString, int> m_answers;
    int m_heard = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Owner owner;
    for (const InputFrame& frame :
         framesOf({reinterpret_cast<const char*>(data), static_cast<int>(size)})) {
        QString error;
        const std::optional<QCborMap> message = decode(frame, &error);
        if (!message)
            continue;
        requireRoundTrips(*message);
        owner.receive(*message);
        if (!owner.isThere())
            break;
    }
    return 0;
}
