#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

/// Says when it is worth looking into the history that another process writes: soon after its files change. A commit
/// is seen a little after the file has changed, and on some disks no change is told; so it is looked again, after
/// 10 ms doubling to a second.
class HistoryWatch : public QObject
{
    Q_OBJECT

public:
    static constexpr int c_firstMs = 10;
    static constexpr int c_lastMs = 1000;

    /// file: the history's; it may not be there yet.
    explicit HistoryWatch(const QString& file, QObject* parent = nullptr);

Q_SIGNALS:
    void sigLook();

private:
    void onChange();
    void onTimer();
    void watchFiles();

    const QString m_file;
    QFileSystemWatcher m_watcher;
    QTimer m_timer;
};
