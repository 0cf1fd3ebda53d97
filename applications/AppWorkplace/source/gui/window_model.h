#pragma once

#include <QObject>
#include <QStringList>

#include "device_list.h"
#include "doctor_table.h"
#include "history_table.h"
#include "window_order.h"

/// What the window itself shows: its devices, which one is in front, the page, and how it looks. QML knows it as
/// "workplace".
class WindowModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(DeviceList* devices READ devices CONSTANT)
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentChanged)
    Q_PROPERTY(DeviceModel* current READ current NOTIFY currentChanged)
    Q_PROPERTY(DoctorTable* doctor READ doctor CONSTANT)
    Q_PROPERTY(HistoryTable* history READ history CONSTANT)
    Q_PROPERTY(QString page READ page WRITE setPage NOTIFY pageChanged)
    Q_PROPERTY(QString theme READ theme WRITE setTheme NOTIFY themeChanged)
    Q_PROPERTY(QString language READ language WRITE setLanguage NOTIFY languageChanged)
    Q_PROPERTY(QStringList languages READ languages CONSTANT)
    Q_PROPERTY(QString version READ version CONSTANT)

public:
    explicit WindowModel(const WindowOrder& order, QObject* parent = nullptr);

    /// The names of the pages and of the themes that there are.
    static QStringList pages();
    static QStringList themes();

    DeviceList* devices() { return &m_devices; }
    int currentIndex() const { return m_currentIndex; }
    void setCurrentIndex(int index); ///< one that there is not is left
    DeviceModel* current() const { return m_devices.at(m_currentIndex); }
    DoctorTable* doctor() { return &m_doctor; }    ///< of the current device
    HistoryTable* history() { return &m_history; } ///< of all devices
    QString page() const { return m_page; }
    void setPage(const QString& page);
    QString theme() const { return m_theme; }
    void setTheme(const QString& theme);
    QString language() const { return m_language; } ///< "en", "de" or "fr"
    void setLanguage(const QString& language);
    QStringList languages() const;
    QString version() const;

    /// Each device whose wrench is known begins to work.
    void connectAll();
    /// Ends what runs on all devices; sigEnded when nothing does. A second call ends at once.
    Q_INVOKABLE void close();

Q_SIGNALS:
    void currentChanged();
    void pageChanged();
    void themeChanged();
    /// Its texts are installed; who shows texts is to ask for them again.
    void languageChanged();
    void sigEnded();

private:
    Settings settingsOfCurrent() const;
    void tellWhenEnded();

    DeviceList m_devices;
    int m_currentIndex = 0;
    DoctorTable m_doctor;
    HistoryTable m_history;
    QString m_page;
    QString m_theme;
    QString m_language;
    bool m_isEnding = false;
    bool m_haveDevicesEnded = false;
};
