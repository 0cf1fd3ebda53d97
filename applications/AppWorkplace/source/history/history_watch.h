#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

/// Says when it is worth looking into the history that another process writes: soon after its files change. A commit
/// is seen a little after the file has changed, so it is looked again, after 10 ms doubling to a second.
class HistoryWatch : public QObject
{
    Q_OBJECT

public:
    static constexpr int c_firstMs = 10;
    static constexpr int c_lastMs = 1000;

    enum class Between {
        Looking, ///< also while nothing changes, every second: on some disks no change is told
        Resting  ///< nothing happens until something changes
    };

    /// file: the history's; it may not be there yet.
    explicit HistoryWatch(const QString& file, Between between = Between::Looking, QObject* parent = nullptr);

Q_SIGNALS:
    void sigLook();

private:
    void onChange();
    void onTimer();
    void watchFiles();

    const QString m_file;
    const Between m_between;
    QFileSystemWatcher m_watcher;
    QTimer m_timer;
};
