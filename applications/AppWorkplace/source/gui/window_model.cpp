#include "window_model.h"

#include <QCoreApplication>

#include "../services/language.h"
#include "../services/translations.h"
#include "../services/workplace.h"

WindowModel::WindowModel(const WindowOrder& order, QObject* parent)
    : QObject(parent)
    , m_devices(order.devices)
    , m_doctor([this] { return settingsOfCurrent(); })
    , m_history(Workplace::dataFolder(order.devices.first()))
    , m_page(order.page)
    , m_theme(order.theme.isEmpty() ? themes().constFirst() : order.theme)
    , m_language(language::choose(order.devices.first()).name)
{
    connect(&m_devices, &DeviceList::sigAllEnded, this, [this] {
        m_haveDevicesEnded = true;
        tellWhenEnded();
    });
    connect(&m_doctor, &DoctorTable::sigEnded, this, &WindowModel::tellWhenEnded);
}

QStringList WindowModel::pages()
{
    return {QStringLiteral("work"),  QStringLiteral("connect"), QStringLiteral("results"),
            QStringLiteral("panel"), QStringLiteral("trace"),   QStringLiteral("doctor")};
}

QStringList WindowModel::themes()
{
    return {QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("contrast")};
}

void WindowModel::setCurrentIndex(int index)
{
    if (index != m_currentIndex && m_devices.at(index) != nullptr) {
        m_currentIndex = index;
        Q_EMIT currentChanged();
    }
}

void WindowModel::setPage(const QString& page)
{
    if (page != m_page && pages().contains(page)) {
        m_page = page;
        Q_EMIT pageChanged();
    }
}

void WindowModel::setTheme(const QString& theme)
{
    if (theme != m_theme && themes().contains(theme)) {
        m_theme = theme;
        Q_EMIT themeChanged();
    }
}

void WindowModel::setLanguage(const QString& language)
{
    if (language != m_language && languages().contains(language)) {
        m_language = language;
        translations::install(language);
        m_devices.setLanguage(language);
        m_history.retranslate();
        Q_EMIT languageChanged();
    }
}

QStringList WindowModel::languages() const
{
    return language::all();
}

QString WindowModel::version() const
{
    return QCoreApplication::applicationVersion();
}

void WindowModel::connectAll()
{
    for (int i = 0; i < m_devices.count(); ++i) {
        DeviceModel* device = m_devices.at(i);
        if (!device->serialId().isEmpty()) {
            device->work(device->serialId());
        }
    }
}

void WindowModel::close()
{
    if (m_isEnding) {
        Q_EMIT sigEnded();
        return;
    }
    m_isEnding = true;
    m_doctor.stop();
    m_devices.endAll();
}

Settings WindowModel::settingsOfCurrent() const
{
    Settings settings = current()->settings();
    settings.serialId = current()->serialId();
    return settings;
}

void WindowModel::tellWhenEnded()
{
    if (m_isEnding && m_haveDevicesEnded && !m_doctor.isRunning()) {
        Q_EMIT sigEnded();
    }
}
