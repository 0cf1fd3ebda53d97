#include "window_memory.h"

#include <QDir>

#include "../services/language.h"
#include "window_model.h"

namespace {

const QString c_theme = QStringLiteral("theme");
const QString c_language = QStringLiteral("language");

/// What is kept there when it is one of the names; a file may say anything.
QString nameIn(const QJsonObject& kept, const QString& key, const QStringList& names)
{
    const QString name = kept.value(key).toString();
    return names.contains(name) ? name : QString();
}

} // namespace

WindowMemory::WindowMemory(const QString& folder, QObject* parent)
    : QObject(parent), m_file(QDir(folder).absoluteFilePath(QStringLiteral("window.json")))
{}

bool WindowMemory::recall(WindowOrder& order, QString* cause)
{
    const bool isRead = m_file.load(&m_kept, cause);
    if (order.theme.isEmpty()) {
        order.theme = nameIn(m_kept, c_theme, WindowModel::themes());
    }
    for (Settings& device : order.devices) {
        if (device.language.isEmpty()) {
            device.language = nameIn(m_kept, c_language, language::all());
        }
    }
    return isRead;
}

void WindowMemory::follow(const WindowModel& model)
{
    connect(&model, &WindowModel::themeChanged, this, [this, &model] { keep(c_theme, model.theme()); });
    connect(&model, &WindowModel::languageChanged, this, [this, &model] { keep(c_language, model.language()); });
}

void WindowMemory::keep(const QString& key, const QString& value)
{
    m_kept.insert(key, value);
    QString cause;
    if (!m_file.save(m_kept, &cause)) {
        Q_EMIT sigNotKept(cause);
    }
}
