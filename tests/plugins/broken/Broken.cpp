// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

// Many plugins in one library: it has the defect that its file is named after, "leaks-timer.so",
// and none as "sound.so". So a new defect costs one line here, and no time to build.
#include "plugin/gui/DeviceDelegate.h"
#include "plugin/gui/DeviceHistoryBundle.h"
#include "plugin/gui/DeviceWidget.h"
#include "plugin/gui/Interface.h"
#include "plugin/gui/VariableHistoryBuffer.h"

#include <QAbstractListModel>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QFileDialog>
#include <QFont>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPalette>
#include <QPushButton>
#include <QResource>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>

#include <algorithm>
#include <cfenv>
#include <chrono>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" OLM_EXPORT void pluginGuiInterface(plugin::gui::Interface** interface);

namespace {

/// Whether this is the plugin with that defect.
bool has(const char* defect)
{
    static const std::string name = [] {
        Dl_info info{};
        dladdr(reinterpret_cast<void*>(&pluginGuiInterface), &info);
        std::string file = std::strrchr(info.dli_fname, '/') + 1;
        return file.substr(0, file.rfind('.'));
    }();
    return name == defect;
}

/// What never goes away by itself.
template <class T>
void forget(T* thing)
{
    [[maybe_unused]] static T* volatile s_kept;
    s_kept = thing;
}

/// Registers one empty file, ":/left". As Qt's resource compiler writes it; in memory that stays.
void registerResource()
{
    static constexpr unsigned char content[] = {
        'q', 'r', 'e', 's', 0, 0, 0, 1, 0, 0, 0, 20, 0, 0, 0, 48, 0, 0, 0, 52,
        // the tree: the root, which is a folder with one entry, and the file
        0, 0, 0, 0, 0, 2, 0, 0, 0, 1, 0, 0, 0, 1, //
        0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0,
        // its size, and its name: length, hash, text
        0, 0, 0, 0, //
        0, 4, 0, 0x07, 0x2b, 0xd4, 0, 'l', 0, 'e', 0, 'f', 0, 't'};
    auto* const kept = new unsigned char[sizeof content];
    std::copy(std::begin(content), std::end(content), kept);
    QResource::registerResource(kept);
}

struct AtLoad
{
    AtLoad()
    {
        if (has("slow-to-load"))
            std::this_thread::sleep_for(std::chrono::milliseconds(1200));
        if (has("prints"))
            std::puts("hello");
        if (has("leaks-when-loaded"))
            forget(new char[5000]);
        if (has("leaves-resources"))
            registerResource();
    }
} const s_atLoad;

void changeSurroundings()
{
    if (has("changes-locale"))
        std::setlocale(LC_ALL,
                       std::strcmp(std::setlocale(LC_ALL, nullptr), "C") == 0 ? "C.UTF-8" : "C");
    if (has("changes-folder"))
        QDir::setCurrent(QStringLiteral("/"));
    if (has("changes-environment"))
        setenv("BROKEN_PLUGIN", "was here", 1);
    if (has("changes-rounding"))
        std::fesetround(FE_UPWARD);
    if (has("changes-file-mask"))
        umask(0);
    if (has("changes-signal-handler"))
        std::signal(SIGPIPE, SIG_IGN);
    if (has("changes-terminate"))
        std::set_terminate(std::abort);
    if (has("changes-signal-mask")) {
        sigset_t set;
        sigemptyset(&set);
        sigaddset(&set, SIGUSR1);
        pthread_sigmask(SIG_BLOCK, &set, nullptr);
    }
}

void changeApplication()
{
    if (has("changes-palette"))
        QApplication::setPalette(QPalette(Qt::red));
    if (has("changes-font"))
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 33));
    if (has("changes-style-sheet"))
        qApp->setStyleSheet(QStringLiteral("QLabel { color: red; }"));
    if (has("changes-application-name"))
        QCoreApplication::setApplicationName(QStringLiteral("mine"));
    if (has("changes-message-handler"))
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

/// Two rows. The defective one has an alignment that is none.
class Model : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role == Qt::CheckStateRole && has("breaks-model-rules"))
            return 7;
        return role == Qt::DisplayRole ? QVariant(index.row()) : QVariant();
    }
};

#ifdef QUANDREL_SANITIZERS // with which a plugin may take longer
constexpr std::chrono::milliseconds tooLong(1100);
#else
constexpr std::chrono::milliseconds tooLong(150);
#endif

class Dialog;
Dialog* s_last = nullptr;
plugin::gui::DeviceDelegate* s_delegate = nullptr; // of a widget that may be gone

class Dialog : public plugin::gui::DeviceWidget
{
public:
    explicit Dialog(plugin::gui::DeviceDelegate& delegate);
    ~Dialog() override;

    void translate() override;
    void update(const plugin::gui::DeviceHistoryBundle& bundle) override;
    void connected() override;
    void disconnected() override;
    void on_messageReceived(plugin::plugin::DataRole role,
                            const olm::core::variant::Variant& value) override;

    using DeviceWidget::update;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildAccess(QFormLayout& layout);
    void buildLife();
    void leak();
    void registerVariables();
    bool isTooMuch(const plugin::gui::DeviceHistoryBundle& bundle);
    void takeBadValues(const plugin::gui::DeviceHistoryBundle& bundle);
    void answer(const plugin::gui::DeviceHistoryBundle& bundle);
    void write(const char* name, const olm::core::variant::Variant& value);
    void onConnect();

    plugin::gui::DeviceDelegate& m_delegate;
    QTabWidget* m_tabs = new QTabWidget(this);
    QLabel* m_caption = new QLabel;
    QCheckBox* m_power = new QCheckBox;
    QSlider* m_brightness = new QSlider(Qt::Horizontal);
    QComboBox* m_mode = new QComboBox;
    QLineEdit* m_name = new QLineEdit;
    QPushButton* m_connect = new QPushButton;
    int* m_afterTranslation = nullptr;
    bool m_isTranslated = false;
    bool m_wasShown = false;
    bool m_isDue = false; // a value that is shown soon
    int m_updates = 0;
    int m_written = -1; // to "power"
};

Dialog::Dialog(plugin::gui::DeviceDelegate& delegate)
    : DeviceWidget(delegate, nullptr),
      m_delegate(delegate)
{
    if (has("throws-in-constructor"))
        throw std::runtime_error("no such picture");
    if (has("ends-process"))
        std::exit(0); // NOLINT(concurrency-mt-unsafe)
    if (has("aborts"))
        std::abort();
    auto* page = new QWidget;
    auto* layout = new QFormLayout(page);
    if (!has("nameless-control"))
        m_caption->setBuddy(m_brightness);
    layout->addRow(m_power);
    layout->addRow(m_caption, m_brightness);
    layout->addRow(m_mode);
    layout->addRow(m_name);
    layout->addRow(m_connect);
    auto* list = new QListView;
    list->setModel(new Model(list));
    layout->addRow(list);
    buildAccess(*layout);
    m_tabs->addTab(page, QString());
    (new QHBoxLayout(this))->addWidget(m_tabs);
    m_mode->addItems({QString(), QString()});
    m_brightness->setRange(0, 100);
    m_power->setChecked(readConfigVariable("power").toBool());

    connect(m_power, &QCheckBox::toggled, this, [this](bool on) { write("power", on); });
    connect(m_brightness, &QSlider::valueChanged, this,
            [this](int value) { write("brightness", value); });
    connect(m_mode, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int index) { write("mode", index); });
    connect(m_name, &QLineEdit::returnPressed, this,
            [this] { write("name", m_name->text().toStdString()); });
    connect(m_connect, &QPushButton::clicked, this, [this] { onConnect(); });
    if (!has("registers-late"))
        registerVariables();
    buildLife();
    leak();
    changeSurroundings();
    s_last = this;
}

void Dialog::buildAccess(QFormLayout& layout)
{
    if (has("unreachable-control"))
        m_connect->setFocusPolicy(Qt::NoFocus);
    if (has("keeps-tab-key"))
        layout.addRow(new QTextEdit);
    if (has("faint-text"))
        m_caption->setStyleSheet(QStringLiteral("color: #c0c0c0"));
    if (has("cuts-text"))
        m_connect->setFixedWidth(30);
    if (has("cuts-text-on-sharp-screens")) // as if widths were told in the screen's pixels
        m_connect->setFixedWidth(static_cast<int>(180 / devicePixelRatioF()));
}

void Dialog::registerVariables()
{
    auto* const late = has("leaks-when-host-throws") ? new QLabel : nullptr;
    for (const char* name : {"power", "brightness", "mode", "name"}) {
        try {
            m_delegate.registerConfigVariable(name, true);
        } catch (...) {
            if (!has("swallows-exceptions"))
                throw;
        }
    }
    if (late)
        late->setParent(this);
    if (has("trusts-what-it-reads") && readConfigVariable("mode").toInt() < -1)
        std::raise(SIGSEGV);
}

void Dialog::buildLife()
{
    QAction* const help = helpAction(QStringLiteral("device"));
    addAction(help);
    if (has("deletes-help-action"))
        delete help;
    if (has("adopts-help-action"))
        help->setParent(this);
    if (has("leaks-connection"))
        connect(help, &QAction::triggered, help, [] {});
    if (has("warns"))
        connect(m_power, SIGNAL(noSuchSignal()), this, SLOT(close()));
    if (has("prints-errors"))
        std::fputs("something is wrong\n", stderr);
    if (has("writes-in-constructor"))
        writeConfigVariable("brightness", 50);
    if (has("connects-by-itself"))
        connectDevice();
    if (has("shows-itself"))
        show();
    if (has("has-parent"))
        setParent(new QWidget);
    if (has("forgets-child"))
        forget(new DeviceWidget(m_delegate, nullptr));
    if (has("keeps-deleted-owner")) {
        auto* timer = new QTimer(qApp);
        connect(timer, &QTimer::timeout, timer, [timer, owner = this] {
            if (s_last == owner)
                return;
            timer->stop();
            timer->deleteLater();
            s_delegate->registerConfigVariable("power", true);
        });
        s_delegate = &m_delegate;
        timer->start(1);
    }
}

void Dialog::leak()
{
    if (has("leaks-widget"))
        forget(new QLabel(QStringLiteral("1")));
    if (has("leaks-object"))
        forget(new QObject);
    if (has("leaks-timer"))
        qApp->startTimer(100000);
    if (has("leaks-window"))
        (new QWidget)->show();
    if (has("leaks-memory"))
        forget(new char[500]);
    if (has("leaks-file")) [[maybe_unused]]
        const int file = open("/dev/null", O_RDONLY);
    if (has("leaks-thread"))
        std::thread([] { pause(); }).detach();
}

Dialog::~Dialog()
{
    if (has("crashes-untranslated") && !m_isTranslated)
        *m_afterTranslation = 1; // NOLINT: that is the defect
    if (has("crashes-in-destructor"))
        std::raise(SIGSEGV);
    if (s_last == this)
        s_last = nullptr;
}

void Dialog::translate()
{
    if (has("keeps-language") && m_isTranslated)
        return;
    m_isTranslated = true;
    m_caption->setText(has("forgets-text") ? QStringLiteral("Brightness") : trans("Brightness"));
    m_power->setText(trans("Power"));
    m_power->setToolTip(has("forgets-tool-tip") ? QStringLiteral("Switch it on")
                                                : trans("Switch it on"));
    m_connect->setText(trans("Connect") + QStringLiteral(" …"));
    m_tabs->setTabText(0, has("forgets-tab") ? QStringLiteral("Lamp") : trans("Lamp"));
    m_mode->setItemText(0, trans("Steady"));
    m_mode->setItemText(1, has("forgets-choice") ? QStringLiteral("Flashing") : trans("Flashing"));
    m_mode->setAccessibleName(trans("Mode"));
    m_name->setPlaceholderText(trans("Name"));
    if (has("registers-late"))
        m_delegate.registerConfigVariable("power", true);
    changeApplication();
    if (has("never-translates"))
        std::this_thread::sleep_for(std::chrono::hours(1));
}

void Dialog::update(const plugin::gui::DeviceHistoryBundle& bundle)
{
    if (has("throws-in-update"))
        throw std::runtime_error("a value of that type is unheard of");
    takeBadValues(bundle);
    if (isTooMuch(bundle))
        return;
    const QSignalBlocker power(has("writes-back") ? static_cast<QObject*>(this) : m_power);
    const QSignalBlocker brightness(m_brightness);
    const QSignalBlocker mode(m_mode);
    if (const auto* history = bundle.getConfigVariableHistory("power"))
        m_power->setChecked(history->last().toBool());
    if (const auto* history = bundle.getConfigVariableHistory("brightness"))
        m_brightness->setValue(history->last().toInt());
    if (const auto* history = bundle.getConfigVariableHistory("mode"))
        m_mode->setCurrentIndex(history->last().toInt());
    if (const auto* history = bundle.getConfigVariableHistory("name")) {
        m_name->setText(QString::fromStdString(history->last().toString()));
        if (has("crashes-on-wrong-type") && history->last().any().type() != typeid(std::string))
            std::raise(SIGSEGV);
    }
}

/// What is told fast, or while nobody looks, and not shown.
bool Dialog::isTooMuch(const plugin::gui::DeviceHistoryBundle& bundle)
{
    if (has("slow-update"))
        std::this_thread::sleep_for(tooLong);
    const bool isIgnored = m_wasShown ? has("ignores-updates-while-hidden") && !isVisible()
                                      : has("ignores-updates-until-shown");
    const auto* history = bundle.getConfigVariableHistory("brightness");
    if (isIgnored || !has("shows-first-of-many") || !history)
        return isIgnored;
    if (!std::exchange(m_isDue, true))
        QTimer::singleShot(0, this, [this, value = history->last().toInt()] {
            m_isDue = false;
            const QSignalBlocker blocker(m_brightness);
            m_brightness->setValue(value);
        });
    return true;
}

void Dialog::takeBadValues(const plugin::gui::DeviceHistoryBundle& bundle)
{
    if (has("crashes-before-translation") && !m_isTranslated)
        std::raise(SIGSEGV);
    if (++m_updates > 5000 && has("crashes-after-many-updates"))
        std::raise(SIGSEGV);
    if (const auto* history = bundle.getConfigVariableHistory("brightness")) {
        if (has("crashes-on-largest-number") &&
            history->last().toInt() == std::numeric_limits<int>::max())
            std::raise(SIGSEGV);
        auto size = history->last().get<double>();
        while (has("loops-on-infinity") && size > 1)
            size /= 2;
    }
    if (const auto* history = bundle.getConfigVariableHistory("name")) {
        if (has("crashes-on-long-text") && history->last().toString().size() > 1000)
            std::raise(SIGSEGV);
    }
    answer(bundle);
}

void Dialog::answer(const plugin::gui::DeviceHistoryBundle& bundle)
{
    const auto* history = bundle.getConfigVariableHistory("power");
    if (!history || m_written < 0)
        return;
    const bool isAsWritten = history->last().toBool() == (m_written == 1);
    if (isAsWritten ? has("answers-echo") : has("insists"))
        writeConfigVariable("power", m_written == 1);
}

void Dialog::on_messageReceived(plugin::plugin::DataRole role, const olm::core::variant::Variant&)
{
    constexpr int unknown = 17;
    if (has("throws-on-unknown-role") && static_cast<int>(role) == unknown)
        throw std::runtime_error("nobody told of such a role");
}

void Dialog::connected()
{
    if (has("never-returns"))
        std::this_thread::sleep_for(std::chrono::hours(1));
}

void Dialog::disconnected()
{
    if (has("deletes-itself"))
        deleteLater();
}

void Dialog::showEvent(QShowEvent* event)
{
    DeviceWidget::showEvent(event);
    m_wasShown = true;
    if (has("writes-when-shown"))
        writeConfigVariable("brightness", 50);
    if (has("throws-in-event"))
        throw std::runtime_error("no room");
}

void Dialog::paintEvent(QPaintEvent* event)
{
    DeviceWidget::paintEvent(event);
    if (has("slow-to-paint"))
        std::this_thread::sleep_for(tooLong);
}

void Dialog::contextMenuEvent(QContextMenuEvent* event)
{
    if (!has("dies-with-menu-open"))
        return DeviceWidget::contextMenuEvent(event);
    QMenu menu(this); // deleted twice, where the widget is deleted meanwhile
    menu.addAction(trans("Reset"));
    menu.exec(event->globalPos());
}

void Dialog::write(const char* name, const olm::core::variant::Variant& value)
{
    Dialog& writer = has("mixes-up-devices") && s_last ? *s_last : *this;
    if (has("writes-other-kind"))
        writer.writeStateVariable(name, value);
    else
        writer.writeConfigVariable(name, value);
    if (std::strcmp(name, "power") == 0)
        m_written = value.toBool() ? 1 : 0;
    while (has("waits-for-write") && readConfigVariable(name).isEmpty())
        std::this_thread::yield();
    if (has("writes-twice"))
        writeConfigVariable(name, value);
}

void Dialog::onConnect()
{
    if (has("leaks-when-used"))
        forget(new char[10000]);
    if (has("crashes-with-power-on") && m_power->isChecked())
        std::raise(SIGSEGV);
    if (has("crashes-on-a-chosen-file") && !QFileDialog::getSaveFileName(this).isEmpty())
        std::abort();
    if (!has("ends-foreign-transaction"))
        beginTransaction(QStringLiteral("Connect"));
    if (has("nests-transactions"))
        beginTransaction(QStringLiteral("Connect again"));
    writeConfigVariable("name", m_name->text().toStdString());
    if (!has("leaves-transaction-open"))
        endTransaction();
    connectDevice();
}

std::string simplified(const char* name)
{
    QString text = QString::fromLatin1(name);
    if (has("ignores-case"))
        text = text.toLower();
    if (has("trims-names"))
        text = text.trimmed();
    return text.toStdString();
}

class Interface : public plugin::gui::Interface
{
public:
    Interface()
        : plugin::gui::Interface(
              {has("no-vendor") ? "" : "Broken Works", "Lamp", "", -1, -1, -1, -1})
    {
    }

    void init() const override
    {
        static int count = 0;
        if (has("throws-in-second-init") && ++count > 1)
            throw std::runtime_error("once is enough");
        Dl_info own{};
        if (has("opens-itself") && dladdr(reinterpret_cast<void*>(&pluginGuiInterface), &own) != 0)
            dlopen(own.dli_fname, RTLD_NOW);
    }

    plugin::gui::DeviceWidget*
    loadDeviceWidget(const char* device, const char* widget,
                     plugin::gui::DeviceDelegate& delegate) const override
    {
        const std::string own = info().vendor() + " " + info().name();
        const bool isDevice =
            has("answers-any-device") || simplified(device) == simplified(own.c_str());
        const bool isWidget = has("answers-any-widget") || simplified(widget) == "dialog";
        if (has("crashes-on-unknown-name") && !(isDevice && isWidget))
            std::raise(SIGSEGV);
        if (!isDevice || !isWidget || has("no-widget"))
            return nullptr;
        if (has("same-widget-twice") && s_last)
            return s_last;
        return new Dialog(delegate);
    }
};

} // namespace

void pluginGuiInterface(plugin::gui::Interface** interface)
{
    if (has("another-factory")) {
        *interface = new Interface;
        return;
    }
    if (has("unsafe-factory")) {
        static Interface* unguarded;
        if (!unguarded) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            unguarded = new Interface;
        }
        *interface = unguarded;
        return;
    }
    static Interface instance;
    *interface = &instance;
}
