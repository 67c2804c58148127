// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/check/tests/ContractTests.h"

#include "host/check/stage/Complaints.h"
#include "host/check/stage/Controls.h"
#include "host/check/stage/Failure.h"
#include "host/check/stage/Progress.h"
#include "host/check/stage/Stage.h"
#include "host/check/stage/Subject.h"
#include "host/check/stage/Surroundings.h"
#include "host/check/stage/Values.h"
#include "host/workbench/values/ValueText.h"

#include <QCoreApplication>
#include <QMap>
#include <QRegularExpression>
#include <QTranslator>

namespace host::check::tests {

namespace {

using device::trace::PluginCall;
using device::trace::Traffic;
using stage::fail;
using stage::Progress;
using stage::settle;
using stage::ShownText;
using stage::skip;
using stage::Stage;
using stage::Subject;
using stage::Surroundings;
using stage::Usage;
using stage::usualValues;
using stage::Variable;
using stage::Variant;

bool isWrite(const PluginCall& call)
{
    return QLatin1String(call.name).startsWith(QLatin1String("write"));
}

/// What a widget may do only where a person asked for it.
bool needsPerson(const PluginCall& call)
{
    const QLatin1String name(call.name);
    return isWrite(call) || name == QLatin1String("connectDevice") ||
           name == QLatin1String("disconnectDevice") || name == QLatin1String("beginTransaction");
}

/// The name and the value that a call was given.
QString inWords(const PluginCall& call)
{
    QStringList values;
    for (const device::trace::Argument& argument : *call.arguments)
        values << workbench::values::inWords(argument.value);
    return QStringLiteral("%1(%2)").arg(QLatin1String(call.name), values.join(", "));
}

void failAtUnaskedCalls(Stage& stage, Traffic::Number mark, const QString& when)
{
    for (const PluginCall& call : stage.host().callsSince(mark)) {
        if (needsPerson(call))
            fail(QStringLiteral("calls %1 %2, which nobody asked for").arg(inWords(call), when));
    }
}

void registersInItsConstructor(Subject& subject)
{
    Stage stage(subject);
    const std::set<Variable> first = stage.host().usage().registered;
    stage.host().welcome();
    stage.show();
    stage.host().connected();
    stage.host().disconnected();
    settle();
    for (const Variable& variable : stage.host().usage().registered) {
        if (first.count(variable) == 0)
            fail(QStringLiteral("registers the %1 only after its constructor: it misses what the "
                                "device says until then")
                     .arg(stage::inWords(variable)));
    }
    for (const Variable& variable : first) {
        if (variable.second.empty())
            fail(QStringLiteral("registers a variable without a name"));
    }
}

void writesNothingUnasked(Subject& subject)
{
    Stage stage(subject);
    failAtUnaskedCalls(stage, 0, QStringLiteral("while it is built"));
    auto mark = stage.host().mark();
    stage.host().welcome();
    failAtUnaskedCalls(stage, mark, QStringLiteral("when it is translated"));
    mark = stage.host().mark();
    stage.show();
    failAtUnaskedCalls(stage, mark, QStringLiteral("when it is shown"));
    mark = stage.host().mark();
    stage.host().connected();
    stage.host().disconnected();
    settle();
    failAtUnaskedCalls(stage, mark, QStringLiteral("when the device is connected or disconnected"));
    mark = stage.host().mark();
    stage.widget()->hide();
    stage.strike();
    settle();
    failAtUnaskedCalls(stage, mark, QStringLiteral("when it is hidden and deleted"));
}

void writesNothingBack(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    stage.host().connected();
    for (const Variant& value : usualValues()) {
        const auto registered = stage.host().usage().registered;
        for (const Variable& variable : registered) {
            const QString what = stage::inWords(variable, value);
            Progress::note("an update of the " + what);
            const auto mark = stage.host().mark();
            stage.host().change(variable, value);
            settle();
            failAtUnaskedCalls(stage, mark,
                               QStringLiteral("when the device has set the %1").arg(what));
        }
        for (const int role : {0, 1, 2, 1000, 1001, 1002, 1003, 1004, 1005}) {
            const auto mark = stage.host().mark();
            stage.host().message(role, value);
            settle();
            failAtUnaskedCalls(stage, mark,
                               QStringLiteral("when a message of role %1 comes").arg(role));
        }
    }
}

/// Of the calls that one action of a person caused.
void failAtWrongWrites(Stage& stage, Traffic::Number mark, const QString& action)
{
    QMap<QString, int> counts;
    for (const PluginCall& call : stage.host().callsSince(mark)) {
        if (isWrite(call))
            ++counts[QLatin1String(call.name) + ' ' +
                     stage::inWords(call.arguments->front().value)];
    }
    for (auto count = counts.begin(); count != counts.end(); ++count) {
        if (count.value() > 1)
            fail(QStringLiteral("%1 calls %2 %3 times: once is enough")
                     .arg(action, count.key(), QString::number(count.value())));
    }
    if (stage.host().isInTransaction())
        fail(QStringLiteral("%1 begins a transaction that it does not end").arg(action));
    const Usage& usage = stage.host().usage();
    for (const Variable& written : usage.written) {
        if (usage.registered.count(written) > 0 || usage.read.count(written) > 0)
            continue;
        for (const auto* known : {&usage.registered, &usage.read}) {
            for (const Variable& other : *known) {
                if (other.second == written.second)
                    fail(QStringLiteral("%1 writes the %2, but what it follows is the %3")
                             .arg(action, stage::inWords(written), stage::inWords(other)));
            }
        }
    }
}

void writesOnce(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    stage.host().connected();
    int used = 0;
    stage::forEachControl(*stage.widget(), [&](QWidget& control) {
        Progress::note("the use of the " + stage::nameOf(control));
        const auto mark = stage.host().mark();
        const QString action = stage::use(control);
        ++used;
        failAtWrongWrites(stage, mark, action);
    });
    if (used == 0)
        skip(QStringLiteral("there is nothing in it that a person could change"));
}

void leavesHelpActions(Subject& subject)
{
    Stage stage(subject);
    stage.host().welcome();
    stage.show();
    const QSet<QString> contexts = stage.host().usage().helpContexts;
    if (contexts.isEmpty())
        skip(QStringLiteral("it asks for no help action"));
    const auto look = [&](const char* when) {
        for (const QString& context : contexts) {
            const QAction* const action = stage.host().knownHelpAction(context);
            if (!action)
                fail(QStringLiteral("deletes the help action \"%1\", which belongs to its host, %2")
                         .arg(context, QLatin1String(when)));
            if (action->parent())
                fail(QStringLiteral("makes the help action \"%1\", which belongs to its host, a "
                                    "child of its own")
                         .arg(context));
        }
    };
    look("while it lives");
    stage.tellEverything();
    look("while it is told of its device");
    stage.strike();
    settle();
    look("when its widget is deleted");
}

/// A text in a language that nobody speaks, which tells where each text comes from.
QString marked(const QString& text, QChar begin, QChar end)
{
    return text.isEmpty() ? text : begin + text + end;
}

constexpr char16_t begins[] = {u'\u27e6', u'\u27ea'};
constexpr char16_t ends[] = {u'\u27e7', u'\u27eb'};

/// Qt's own texts, those of standard buttons for instance, are not the plugin's affair.
class QtTexts : public QTranslator
{
public:
    explicit QtTexts(std::size_t language) : m_language(language) {}

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* source, const char*, int) const override
    {
        static const QRegularExpression ours(QStringLiteral("^(Q[A-Z]|olm::|plugin::)"));
        if (!ours.match(QLatin1String(context)).hasMatch())
            return {};
        return marked(QString::fromUtf8(source), QChar(begins[m_language]),
                      QChar(ends[m_language]));
    }

private:
    std::size_t m_language;
};

void speak(Stage& stage, std::size_t language)
{
    stage.host().setLanguage(QStringLiteral("x%1").arg(language), [language](const QString& text) {
        return marked(text, QChar(begins[language]), QChar(ends[language]));
    });
}

/// Whether @p text has words that no translation made. Units are the same in every language.
bool hasForeignWords(QString text)
{
    static const QRegularExpression translated(
        QStringLiteral("[\u27e6\u27ea][^\u27e7\u27eb]*[\u27e7\u27eb]"));
    static const QRegularExpression word(QStringLiteral("\\p{L}{2,}"));
    static const QStringList units{"Hz", "kHz", "MHz", "GHz", "mm", "cm",  "km",  "ms",   "min",
                                   "kg", "rad", "deg", "Nm",  "kN", "mA",  "mV",  "kV",   "kW",
                                   "dB", "kB",  "MB",  "GB",  "px", "bit", "fps", "Mbit", "lx"};
    text.remove(translated);
    for (auto found = word.globalMatch(text); found.hasNext();) {
        if (!units.contains(found.next().captured()))
            return true;
    }
    return false;
}

void translatesEveryText(Subject& subject)
{
    QtTexts qt(0);
    QCoreApplication::installTranslator(&qt);
    Stage stage(subject);
    speak(stage, 0);
    stage.host().welcome();
    stage.show();
    QStringList faults;
    for (const ShownText& shown : stage::shownTexts(*stage.widget())) {
        if (hasForeignWords(shown.text))
            faults << QStringLiteral("%1, \"%2\"").arg(shown.where, shown.text.left(60));
    }
    if (!faults.isEmpty())
        fail(QStringLiteral("shows what it did not have translated with trans(): %1")
                 .arg(faults.join("; ")));
}

void followsTheLanguage(Subject& subject)
{
    Stage stage(subject);
    QtTexts first(0);
    QCoreApplication::installTranslator(&first);
    speak(stage, 0);
    stage.host().welcome();
    stage.show();
    stage.host().connected();
    QtTexts second(1);
    QCoreApplication::removeTranslator(&first);
    QCoreApplication::installTranslator(&second);
    speak(stage, 1);
    stage.host().translate();
    settle();
    QStringList faults;
    for (const ShownText& shown : stage::shownTexts(*stage.widget())) {
        if (shown.text.contains(QChar(begins[0])))
            faults << QStringLiteral("%1, \"%2\"").arg(shown.where, shown.text.left(60));
    }
    if (!faults.isEmpty())
        fail(QStringLiteral("keeps the old language when translate() is called: %1")
                 .arg(faults.join("; ")));
}

void leavesItsSurroundings(Subject& subject)
{
    Surroundings before;
    const auto look = [&](const char* when) {
        const Surroundings now;
        const QStringList changes = now.changesSince(before);
        if (!changes.isEmpty())
            fail(QStringLiteral("changes what it shares with its host, %1: %2")
                     .arg(QLatin1String(when), changes.join("; ")));
    };
    subject.interface();
    look("when it is loaded");
    Stage stage(subject);
    look("when its widget is built");
    stage.host().welcome();
    look("when its widget is translated");
    stage.show();
    look("when its widget is shown");
    stage.tellEverything();
    look("when its device says something");
    stage::forEachControl(*stage.widget(), [&](QWidget& control) {
        const QString name = stage::nameOf(control);
        stage::use(control);
        look(qPrintable("when the " + name + " is used"));
    });
    stage.strike();
    settle();
    look("when its widget is deleted");
}

} // namespace

Tests contractTests()
{
    constexpr auto widget = Test::Scope::Widget;
    return {
        {"registration", 3, widget, registersInItsConstructor,
         "registers variables before it is told of them"},
        {"translation", 3, widget, translatesEveryText, "has every text translated"},
        {"language-change", 3, widget, followsTheLanguage, "follows a change of the language"},
        {"unasked", 3, widget, writesNothingUnasked,
         "writes and connects nothing that nobody asked for"},
        {"write-back", 3, widget, writesNothingBack, "does not write back what the device says"},
        {"writes-once", 3, widget, writesOnce,
         "writes once, and the right kind, what a person changes"},
        {"help-actions", 3, widget, leavesHelpActions, "leaves the host's help actions alone"},
        {"surroundings", 3, widget, leavesItsSurroundings,
         "leaves the locale, the process and the application as they are"},
    };
}

} // namespace host::check::tests
