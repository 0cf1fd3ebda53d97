#include "history_exporter.h"

#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QMetaObject>
#include <QStandardPaths>

HistoryExporter::HistoryExporter(const QString& folder, QObject* parent) : QObject(parent), m_folder(folder)
{
    m_thread.setObjectName(QStringLiteral("export"));
}

HistoryExporter::~HistoryExporter()
{
    stop();
    m_thread.quit(); // what was asked of the run is done before
    m_thread.wait();
}

QString HistoryExporter::freeName(const QString& ending) const
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo(folder).isDir()) {
        folder = QDir::homePath();
    }
    const QString day = QDate::currentDate().toString(Qt::ISODate);
    QString name = QStringLiteral("results-%1.%2").arg(day, ending);
    for (int i = 2; QFileInfo::exists(QDir(folder).filePath(name)); ++i) {
        name = QStringLiteral("results-%1-%2.%3").arg(day).arg(i).arg(ending);
    }
    return QDir(folder).filePath(name);
}

void HistoryExporter::start(const QString& file, bool mayReplace)
{
    if (m_run != nullptr) {
        return;
    }
    forget();
    m_run = new ExportRun({m_folder, m_filter, 0, file, mayReplace});
    m_run->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, m_run, &QObject::deleteLater);
    connect(m_run, &ExportRun::sigProgress, this, [this](qint64 written, qint64 of) {
        m_progress = of > 0 ? double(written) / double(of) : 0;
        Q_EMIT sigChanged();
    });
    connect(m_run, &ExportRun::sigDone, this, [this, file] {
        m_writtenFile = file;
        end();
    });
    connect(m_run, &ExportRun::sigStopped, this, [this] {
        m_wasStopped = true;
        end();
    });
    connect(m_run, &ExportRun::sigFailed, this, [this](const Problem& problem) {
        m_problem = problem;
        end();
    });
    m_progress = 0;
    m_thread.start();
    QMetaObject::invokeMethod(m_run, &ExportRun::start, Qt::QueuedConnection);
    Q_EMIT sigChanged();
}

void HistoryExporter::stop()
{
    if (m_run != nullptr) {
        QMetaObject::invokeMethod(m_run, &ExportRun::stop, Qt::QueuedConnection);
    }
}

void HistoryExporter::forget()
{
    m_writtenFile.clear();
    m_wasStopped = false;
    m_problem.reset();
    Q_EMIT sigChanged();
}

void HistoryExporter::end()
{
    m_run = nullptr; // it goes with the thread
    m_thread.quit();
    m_thread.wait();
    Q_EMIT sigChanged();
}
