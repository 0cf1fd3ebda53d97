#include "configuration_text.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

#include "../services/setting_entries.h"
#include "command_line.h"

namespace {

/// As it stands in JSON.
QString json(const QJsonValue& value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

/// The members of one object, in the order of their adding.
class Members
{
public:
    void comment(const QString& key, const QString& text) { add(QStringLiteral("//") + key, json(text)); }
    void value(const QString& key, const QJsonValue& value) { add(key, json(value)); }
    void object(const QString& key, const Members& members)
    {
        QString text = members.text();
        add(key, text.replace(QLatin1Char('\n'), QLatin1String("\n    ")));
    }

    QString text() const { return QStringLiteral("{\n    %1\n}").arg(m_members.join(QStringLiteral(",\n    "))); }

private:
    void add(const QString& key, const QString& value)
    {
        m_members.append(QStringLiteral("%1: %2").arg(json(key), value));
    }

    QStringList m_members;
};

QString example(const QCommandLineOption& option)
{
    if (option.valueName() == QLatin1String("N") || option.valueName() == QLatin1String("SECONDS")) {
        return QStringLiteral("1");
    }
    return isRepeated(option) ? json(QJsonArray{option.valueName()}) : json(option.valueName());
}

Members sectionOf(const CliEntry& entry)
{
    Members section;
    for (const QCommandLineOption& option : entry.options) {
        const QString key = settingKey(option);
        if (option.valueName().isEmpty()) {
            section.comment(key, option.description());
            section.value(key, false);
        } else {
            section.comment(key,
                            QCoreApplication::translate("ConfigurationText", "%1 For example: %2")
                                .arg(option.description(), QStringLiteral("%1: %2").arg(json(key), example(option))));
        }
    }
    return section;
}

} // namespace

QString configurationText(const QList<CliEntry>& entries, const QVariantList& driverSettings)
{
    Members all;
    all.comment({}, QCoreApplication::translate("ConfigurationText",
                                                "Configuration of app_workplace. Keys that begin with // are comments. "
                                                "The values are the defaults; an empty text stands for \"not said\". "
                                                "What is given on the command line goes before it."));
    const Settings defaults;
    for (const SettingEntry& entry : settingEntries()) {
        const QString key = QLatin1String(entry.key);
        all.comment(key, entry.shownDescription());
        all.value(key, entry.text != nullptr ? QJsonValue(defaults.*(entry.text)) : QJsonValue(defaults.*(entry.isOn)));
    }
    for (const CliEntry& entry : entries) {
        if (entry.hasSettings) {
            all.object(entry.name, sectionOf(entry));
        }
    }
    Members driver;
    driver.comment({}, QCoreApplication::translate("ConfigurationText", "Settings of the serial driver."));
    for (const QVariant& setting : driverSettings) {
        const QVariantMap fields = setting.toMap();
        const QString name = fields.value(QStringLiteral("name")).toString();
        driver.comment(name, fields.value(QStringLiteral("allowed")).toString());
        driver.value(name, QJsonValue::fromVariant(fields.value(QStringLiteral("default"))));
    }
    all.object(QStringLiteral("driver"), driver);
    return all.text() + QLatin1Char('\n');
}
