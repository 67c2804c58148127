// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/Language.h"

#include "host/workbench/preferences/PluginTranslator.h"
#include "host/workbench/preferences/PseudoTranslator.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace host::workbench::preferences {

namespace {

constexpr const char* english = "en";
constexpr const char* german = "de";
constexpr const char* pseudo = "pseudo";

constexpr const char* ourFolder = ":/translations";

QString folderOfQtsOwn()
{
    // Qt 6 has a new name for it beside this one, which Qt 5 knows too.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    QT_WARNING_POP
}

} // namespace

Language::Language() : Preference("language", codes()) {}

Language::~Language() = default;

QStringList Language::codes()
{
    return {QLatin1String(english), QLatin1String(german), QLatin1String(pseudo)};
}

QString Language::system()
{
    const QString code = QLocale::system().name().section('_', 0, 0);
    return codes().contains(code) ? code : QLatin1String(english);
}

QString Language::title() const
{
    return tr("&Language");
}

QString Language::name(const QString& code) const
{
    if (code == QLatin1String(pseudo))
        return tr("Pseudo (for developers)");
    return code == QLatin1String(german) ? QStringLiteral("Deutsch") : QStringLiteral("English");
}

QString Language::written() const
{
    return code() == QLatin1String(pseudo) ? QLatin1String(english) : code();
}

void Language::addPlugin(const QString& file)
{
    if (m_plugins.contains(file))
        return;
    m_plugins << file;
    apply();
}

void Language::apply()
{
    m_translators.clear(); // which takes them out of the application
    if (code() == QLatin1String(pseudo))
        install(std::make_unique<PseudoTranslator>());
    else if (code() != QLatin1String(english))
        installAll();
    Q_EMIT changed();
}

void Language::installAll()
{
    // Qt's own file is not on every machine: its few texts stay English then.
    auto qts = std::make_unique<QTranslator>();
    if (qts->load("qtbase_" + code(), folderOfQtsOwn()))
        install(std::move(qts));
    auto own = std::make_unique<QTranslator>();
    if (own->load("workbench_" + code(), ourFolder))
        install(std::move(own));
    for (const QString& plugin : std::as_const(m_plugins)) {
        const QFileInfo library(plugin);
        QString name = library.completeBaseName() + '_' + code() + ".qm";
        if (name.startsWith(QLatin1String("lib")))
            name.remove(0, 3);
        for (const QString& folder : {library.path(), QString(ourFolder)}) {
            auto texts = std::make_unique<PluginTranslator>();
            if (!texts->read(folder + '/' + name))
                continue;
            install(std::move(texts));
            break;
        }
    }
}

void Language::install(std::unique_ptr<QTranslator> translator)
{
    QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
}

} // namespace host::workbench::preferences
