#include "history_watch.h"

#include <QFileInfo>

#include <algorithm>

HistoryWatch::HistoryWatch(const QString& file, Between between, QObject* parent)
    : QObject(parent), m_file(file), m_between(between)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(c_firstMs);
    connect(&m_timer, &QTimer::timeout, this, &HistoryWatch::onTimer);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &HistoryWatch::onChange);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &HistoryWatch::onChange);
    watchFiles();
    m_timer.start();
}

void HistoryWatch::onChange()
{
    watchFiles();
    m_timer.start(c_firstMs);
}

void HistoryWatch::onTimer()
{
    watchFiles();
    const int ms = m_timer.interval();
    if (m_between == Between::Looking || ms < c_lastMs) {
        m_timer.start(std::min(2 * ms, c_lastMs));
    }
    Q_EMIT sigLook();
}

// Files that are made anew are other files, and the watcher forgets those that have gone.
void HistoryWatch::watchFiles()
{
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    for (const QString& path : {QFileInfo(m_file).absolutePath(), m_file, m_file + QStringLiteral("-wal")}) {
        if (!watched.contains(path) && QFileInfo::exists(path)) {
            m_watcher.addPath(path);
        }
    }
}
