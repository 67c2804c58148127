#include "host/workbench/preferences/Language.h"

#include "host/workbench/preferences/PseudoTranslator.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace host::workbench::preferences {

namespace {

constexpr const char* english = "en";
constexpr const char* german = "de";
constexpr const char* pseudo = "pseudo";

QString folderOfQtsOwn()
{
    // Qt 6 has a new name for it beside this one, which Qt 5 knows too.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    QT_WARNING_POP
}

std::unique_ptr<QTranslator> load(const QString& file, const QString& folder)
{
    auto translator = std::make_unique<QTranslator>();
    // Qt's own file is not on every machine: its few texts stay English then.
    return translator->load(file, folder) ? std::move(translator) : nullptr;
}

} // namespace

Language::Language() : m_code(QLatin1String(english)) {}

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

QString Language::name(const QString& code)
{
    if (code == QLatin1String(pseudo))
        return tr("Pseudo (for developers)");
    return code == QLatin1String(german) ? QStringLiteral("Deutsch") : QStringLiteral("English");
}

QString Language::written() const
{
    return m_code == QLatin1String(pseudo) ? QLatin1String(english) : m_code;
}

void Language::use(const QString& code)
{
    if (code == m_code)
        return;
    m_code = code;
    m_translators.clear(); // which takes them out of the application
    if (code == QLatin1String(pseudo)) {
        m_translators.push_back(std::make_unique<PseudoTranslator>());
    } else if (code != QLatin1String(english)) {
        m_translators.push_back(load("qtbase_" + code, folderOfQtsOwn()));
        for (const char* component : {"workbench_", "device_quandrel_gui_"})
            m_translators.push_back(load(QLatin1String(component) + code, ":/translations"));
    }
    for (const auto& translator : m_translators)
        QCoreApplication::installTranslator(translator.get());
    Q_EMIT changed();
}

void Language::restore(const QString& folder)
{
    const QString code = m_choice.restore(folder);
    if (codes().contains(code))
        use(code);
}

QString Language::choose(const QString& code)
{
    use(code);
    if (m_choice.keep(code))
        return {};
    return tr("The language could not be stored in %1, so the next start will not know it: make "
              "room or the folder writable, and choose it again.")
        .arg(m_choice.file());
}

} // namespace host::workbench::preferences
