#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>

#include "../services/json_object_file.h"
#include "window_order.h"

class WindowModel;

/// What a person has switched in the window, so that the next window begins as the last was left: its theme and its
/// language, in the file "window.json" of the data folder.
class WindowMemory : public QObject
{
    Q_OBJECT

public:
    /// folder: where what is kept of the devices is.
    explicit WindowMemory(const QString& folder, QObject* parent = nullptr);

    /// Completes the order by what was left; what it says itself stays. False, with the cause, when the file cannot be
    /// used. It is replaced by what is switched next.
    bool recall(WindowOrder& order, QString* cause);
    /// Keeps from now on what is switched there. The model may go first.
    void follow(const WindowModel& model);

    const QString& file() const { return m_file.path(); }

Q_SIGNALS:
    void sigNotKept(const QString& cause);

private:
    void keep(const QString& key, const QString& value);

    JsonObjectFile m_file;
    QJsonObject m_kept;
};
