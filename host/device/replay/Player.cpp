// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/device/replay/Player.h"

#include "host/device/recording/ValueJson.h"
#include "host/device/trace/ClassName.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"

#include <QLayout>
#include <QWidget>

#include <algorithm>

namespace host::device::replay {

using olm::core::variant::Variant;
using plugin::gui::DeviceWidget;
using recording::RecordedCall;
using trace::Arguments;
using trace::PluginCall;

namespace {

constexpr std::size_t mostBefore = 5;
constexpr std::ptrdiff_t mostAfter = 5;
constexpr int longestText = 120;

/// A call with all that counts of it.
QString inFull(const QString& function, const Arguments& arguments)
{
    QStringList words;
    for (const trace::Argument& argument : arguments) {
        QByteArray json;
        recording::ValueJson::append(json, argument.value);
        const QString name = QString::fromLatin1(argument.name.c_str());
        words += (name.isEmpty() ? QString() : name + QStringLiteral(": ")) +
                 QString::fromUtf8(json)
                     .remove(QStringLiteral("\"type\":"))
                     .replace(QStringLiteral(",\"value\":"), QStringLiteral(" "));
    }
    return function + u'(' + words.join(QStringLiteral(", ")) + u')';
}

QString inFull(const RecordedCall& call)
{
    QString words = inFull(call.function, *call.arguments);
    if (!call.widgetClass.isEmpty())
        words.prepend(call.widgetClass + QStringLiteral("::"));
    if (!call.widgetName.isEmpty())
        words += QStringLiteral(" [%1]").arg(call.widgetName);
    return words;
}

QString inFull(const PluginCall& call)
{
    RecordedCall same;
    same.function = QLatin1String(call.name);
    same.widgetClass = call.widgetClass ? trace::className(*call.widgetClass) : QString();
    same.widgetName = call.widgetName;
    same.arguments = call.arguments;
    return inFull(same);
}

/// The part of @p text from which on it may differ from another.
QString shortened(const QString& text, int from = 0)
{
    const bool isShort = text.size() <= longestText || from < longestText / 2;
    const int begin = isShort ? 0 : from - longestText / 4;
    QString part = text.mid(begin, longestText);
    if (begin > 0)
        part.prepend(QStringLiteral("… "));
    if (begin + longestText < text.size())
        part += QStringLiteral(" …");
    return part;
}

int commonLength(const QString& a, const QString& b)
{
    const auto differs = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return static_cast<int>(differs.first - a.begin());
}

QString seconds(std::chrono::nanoseconds time)
{
    return QString::number(std::chrono::duration<double>(time).count(), 'f', 3);
}

} // namespace

Player::Player(const plugin::gui::Interface& factory, const recording::DeviceState& state,
               QWidget& parent)
    : m_factory(factory),
      m_parent(parent),
      m_host(state)
{
    connect(&traffic(), &trace::Traffic::began, this, &Player::onCalled);
}

Player::~Player()
{
    disconnect(&traffic(), nullptr, this, nullptr);
}

void Player::play(const PlayedCall& call)
{
    const RecordedCall& recorded = call.call;
    if (recorded.part == RecordedCall::Part::Whole) {
        m_host.learn(recorded);
    } else if (recorded.function == loadFunction) {
        m_hasWidgets = true;
        m_played = &call;
        m_nextAnswer = 0;
        if (recorded.arguments->size() == 2)
            build(recorded.arguments->at(0).value.toString().c_str(),
                  recorded.arguments->at(1).value.toString().c_str());
    } else {
        buildWidgets();
        m_played = &call;
        m_nextAnswer = 0;
        deliver(recorded);
    }
    if (m_played && m_nextAnswer < call.answers.size())
        differ(tr("  the plugin did not call\n    %1")
                   .arg(shortened(inFull(call.answers[m_nextAnswer]))));
    m_played = nullptr;
    m_before.push_back(tr("%1 s, call %2: %3")
                           .arg(seconds(call.time), QString::number(recorded.number),
                                shortened(inFull(recorded))));
    if (m_before.size() > mostBefore)
        m_before.pop_front();
}

/// Of a recording that began when they were there already: what they asked then is not known.
void Player::buildWidgets()
{
    if (std::exchange(m_hasWidgets, true))
        return;
    const std::string device = m_factory.info().vendor() + ' ' + m_factory.info().name();
    for (const char* const widget : {"toolbar", "dialog"})
        build(device.c_str(), widget);
}

void Player::build(const char* device, const char* widget)
{
    QString result;
    bool hasThrown = false;
    try {
        if (DeviceWidget* const built = m_widgets.build(m_factory, device, widget)) {
            result = trace::className(typeid(*built));
            m_parent.layout()->addWidget(built);
        }
    } catch (...) {
        hasThrown = true;
    }
    compareEnd(result, hasThrown);
}

void Player::deliver(const RecordedCall& call)
{
    for (const trace::Argument& argument : *call.arguments) {
        if (argument.kind)
            m_host.set(*argument.kind, argument.name, argument.value);
    }
    switch (m_widgets.deliver(call)) {
    case Widgets::Outcome::Done:
        return compareEnd(QString(), false);
    case Widgets::Outcome::Threw:
        return compareEnd(QString(), true);
    case Widgets::Outcome::NoFunction:
        return differ(tr("  this host has no such function"));
    case Widgets::Outcome::NoWidget:
        return differ(tr("  there is no widget %1 that it could be played to")
                          .arg(call.widgetName.isEmpty() ? call.widgetClass
                                                         : QStringLiteral("%1 [%2]").arg(
                                                               call.widgetClass, call.widgetName)));
    }
}

void Player::onCalled(const PluginCall& call)
{
    if (!m_played || !m_difference.isEmpty() || call.direction != PluginCall::Direction::ToHost)
        return;
    const QString called = inFull(call);
    if (m_nextAnswer == m_played->answers.size()) {
        differ(tr("  the plugin called\n    %1\n  and did not when it was recorded")
                   .arg(shortened(called)));
        return;
    }
    const RecordedCall& expected = m_played->answers[m_nextAnswer];
    const QString recorded = inFull(expected);
    if (called == recorded) {
        ++m_nextAnswer;
        m_host.answerNext(expected.result.value_or(Variant()));
        return;
    }
    const int same = commonLength(called, recorded);
    differ(tr("  the plugin called\n    %1\n  and recorded is\n    %2")
               .arg(shortened(called, same), shortened(recorded, same)));
}

void Player::compareEnd(const QString& result, bool hasThrown)
{
    if (!m_played)
        return; // not recorded
    const RecordedCall& recorded = m_played->call;
    const QString then = recorded.result.value_or(Variant()).get<QString>();
    if (hasThrown != recorded.hasThrown)
        differ(hasThrown ? tr("  the plugin threw an exception, and did not when it was recorded")
                         : tr("  the plugin threw an exception when it was recorded, and now did "
                              "not"));
    else if (result != then)
        differ(tr("  the plugin made \"%1\", and recorded is \"%2\"").arg(result, then));
}

void Player::differ(const QString& words)
{
    if (!m_difference.isEmpty())
        return;
    const RecordedCall& call = m_played->call;
    m_difference +=
        tr("Call %1, %2 s after the beginning: %3")
            .arg(QString::number(call.number), seconds(m_played->time), shortened(inFull(call)));
    m_difference += words.split(u'\n');
    const std::vector<RecordedCall>& answers = m_played->answers;
    const auto next = static_cast<std::ptrdiff_t>(std::min(m_nextAnswer, answers.size()));
    const auto size = static_cast<std::ptrdiff_t>(answers.size());
    if (next > 0)
        m_difference += tr("Before that, in the same call:");
    for (auto i = std::max<std::ptrdiff_t>(next - mostAfter, 0); i < next; ++i)
        m_difference += QStringLiteral("    ") + shortened(inFull(answers[std::size_t(i)]));
    if (next < size)
        m_difference += tr("Recorded from there on:");
    for (auto i = next; i < std::min(next + mostAfter, size); ++i)
        m_difference += QStringLiteral("    ") + shortened(inFull(answers[std::size_t(i)]));
    if (!m_before.empty())
        m_difference += tr("Calls before it:");
    for (const QString& before : m_before)
        m_difference += QStringLiteral("    ") + before;
}

} // namespace host::device::replay
