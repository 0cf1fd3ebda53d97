#include "configuration_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

#include "json_lines.h"
#include "language.h"
#include "setting_entries.h"

namespace {

const QString c_driverKey = QStringLiteral("driver");
const QString c_commentPrefix = QStringLiteral("//");

bool isComment(const QJsonObject::const_iterator& entry)
{
    return entry.key().startsWith(c_commentPrefix) && entry.value().isString();
}

QString expected(configuration::Value value)
{
    switch (value) {
    case configuration::Value::Text:
        return QCoreApplication::translate("ConfigurationFile", "put its value between quotes");
    case configuration::Value::Switch:
        return QCoreApplication::translate("ConfigurationFile", "write true or false");
    case configuration::Value::WholeNumber:
        return QCoreApplication::translate("ConfigurationFile", "write a whole number, without quotes");
    case configuration::Value::Number:
        return QCoreApplication::translate("ConfigurationFile", "write a number, without quotes");
    case configuration::Value::TextList:
        return QCoreApplication::translate("ConfigurationFile", "write a list: [\"…\", \"…\"]");
    }
    Q_UNREACHABLE();
}

QString mismatch(configuration::Value value, const QString& key)
{
    switch (value) {
    case configuration::Value::Text:
        return QCoreApplication::translate("ConfigurationFile", "\"%1\" is not a text").arg(key);
    case configuration::Value::Switch:
        return QCoreApplication::translate("ConfigurationFile", "\"%1\" is neither true nor false").arg(key);
    case configuration::Value::WholeNumber:
        return QCoreApplication::translate("ConfigurationFile", "\"%1\" is not a whole number").arg(key);
    case configuration::Value::Number:
        return QCoreApplication::translate("ConfigurationFile", "\"%1\" is not a number").arg(key);
    case configuration::Value::TextList:
        return QCoreApplication::translate("ConfigurationFile", "\"%1\" is not a list of texts").arg(key);
    }
    Q_UNREACHABLE();
}

bool fits(configuration::Value wanted, const QJsonValue& value)
{
    switch (wanted) {
    case configuration::Value::Text:
        return value.isString();
    case configuration::Value::Switch:
        return value.isBool();
    case configuration::Value::WholeNumber:
        return value.isDouble() && std::floor(value.toDouble()) == value.toDouble();
    case configuration::Value::Number:
        return value.isDouble();
    case configuration::Value::TextList: {
        const QJsonArray list = value.toArray();
        return value.isArray() &&
               std::all_of(list.begin(), list.end(), [](const QJsonValue& each) { return each.isString(); });
    }
    }
    Q_UNREACHABLE();
}

/// Reads one object after the other and keeps the first refusal.
class Reader
{
public:
    Reader(const QByteArray& text, const QString& file, const configuration::Sections& sections, Settings& settings)
        : m_file(file), m_sections(sections), m_settings(settings), m_lines(linesOfKeys(text))
    {}

    std::optional<Problem> read(const QJsonObject& object)
    {
        for (auto entry = object.begin(); entry != object.end() && !m_problem; ++entry) {
            if (isComment(entry)) {
                continue;
            }
            const bool isSection = m_sections.contains(entry.key());
            if (entry.key() != c_driverKey && !isSection) {
                readSetting(entry.key(), entry.value());
            } else if (!entry.value().isObject()) {
                refuse(
                    entry.key(),
                    QCoreApplication::translate("ConfigurationFile", "\"%1\" is not an object").arg(entry.key()),
                    isSection
                        ? QCoreApplication::translate("ConfigurationFile", "write \"%1\": {…}").arg(entry.key())
                        : QCoreApplication::translate("ConfigurationFile", "write \"driver\": {\"baudRate\": 115200}"));
            } else if (isSection) {
                readSection(entry.key(), entry.value().toObject());
            } else {
                readDriver(entry.value().toObject());
            }
        }
        return m_problem;
    }

private:
    void readSetting(const QString& key, const QJsonValue& value)
    {
        const QVector<SettingEntry>& known = settingEntries();
        const auto entry = std::find_if(known.cbegin(), known.cend(),
                                        [&](const SettingEntry& each) { return key == QLatin1String(each.key); });
        if (entry == known.cend()) {
            QStringList keys;
            for (const SettingEntry& each : known) {
                keys.append(QLatin1String(each.key));
            }
            keys.append(c_driverKey);
            refuseUnknown(key, key, keys + m_sections.keys());
            return;
        }
        const auto wanted = entry->text != nullptr ? configuration::Value::Text : configuration::Value::Switch;
        if (!fits(wanted, value)) {
            refuse(key, mismatch(wanted, key), expected(wanted));
            return;
        }
        if (entry->text == &Settings::language && !value.toString().isEmpty() &&
            !language::all().contains(value.toString())) {
            const Problem unknown = language::refusal(value.toString());
            refuse(key, unknown.what, unknown.mend);
            return;
        }
        if (entry->text != nullptr) {
            m_settings.*(entry->text) = value.toString();
        } else {
            m_settings.*(entry->isOn) = value.toBool();
        }
        note(key);
    }

    void readSection(const QString& section, const QJsonObject& object)
    {
        const QMap<QString, configuration::Value> known = m_sections.value(section);
        QJsonObject read;
        for (auto entry = object.begin(); entry != object.end() && !m_problem; ++entry) {
            const QString path = pathOf(section, entry.key());
            if (isComment(entry)) {
                continue;
            }
            const auto wanted = known.constFind(entry.key());
            if (wanted == known.constEnd()) {
                refuseUnknown(path, entry.key(), known.keys());
            } else if (!fits(*wanted, entry.value())) {
                refuse(path, mismatch(*wanted, entry.key()), expected(*wanted));
            } else {
                read.insert(entry.key(), entry.value());
                note(path);
            }
        }
        m_settings.commands.insert(section, read);
    }

    // The driver says which settings it has once it is loaded.
    void readDriver(const QJsonObject& object)
    {
        m_settings.driver = {};
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            if (!isComment(entry)) {
                m_settings.driver.insert(entry.key(), entry.value());
                note(pathOf(c_driverKey, entry.key()));
            }
        }
    }

    static QString pathOf(const QString& section, const QString& key) { return section + QLatin1Char('.') + key; }

    void note(const QString& path)
    {
        m_settings.origins.insert(path, {SettingOrigin::Kind::File, m_file, m_lines.value(path, 1)});
    }

    void refuseUnknown(const QString& path, const QString& key, const QStringList& known)
    {
        refuse(path, QCoreApplication::translate("ConfigurationFile", "\"%1\" is not known").arg(key),
               QCoreApplication::translate("ConfigurationFile", "known are: %1").arg(known.join(QStringLiteral(", "))));
    }

    void refuse(const QString& path, const QString& cause, const QString& mend)
    {
        m_problem = configuration::refusal(m_file, m_lines.value(path, 1), cause, mend);
    }

    const QString& m_file;
    const configuration::Sections& m_sections;
    Settings& m_settings;
    const QMap<QString, int> m_lines;
    std::optional<Problem> m_problem;
};

} // namespace

QString configuration::defaultFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/haitor-workplace/configuration.json");
}

Problem configuration::refusal(const QString& file, int line, const QString& cause, const QString& mend)
{
    return {Problem::Kind::SetUp, QStringLiteral("configuration"),
            QCoreApplication::translate("ConfigurationFile", "the configuration %1 is not used, line %2")
                .arg(file)
                .arg(line),
            cause, mend};
}

std::optional<Problem> configuration::readFile(const QString& file, const Sections& sections, Settings& settings)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        return Problem{
            Problem::Kind::SetUp, QStringLiteral("configuration"),
            QCoreApplication::translate("ConfigurationFile", "the configuration %1 cannot be read").arg(file),
            input.errorString(),
            QCoreApplication::translate("ConfigurationFile", "check the name and the rights of the file")};
    }
    const QByteArray text = input.read(c_maxFileBytes + 1);
    if (text.size() > c_maxFileBytes) {
        return Problem{
            Problem::Kind::SetUp, QStringLiteral("configuration"),
            QCoreApplication::translate("ConfigurationFile", "the configuration %1 is not used").arg(file),
            QCoreApplication::translate("ConfigurationFile", "it is longer than %1 bytes").arg(c_maxFileBytes),
            QCoreApplication::translate("ConfigurationFile", "name a configuration file; no configuration is so long")};
    }
    return read(text, file, sections, settings);
}

std::optional<Problem> configuration::read(const QByteArray& text, const QString& file, const Sections& sections,
                                           Settings& settings)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        return refusal(file, lineOf(text, error.offset), error.errorString(),
                       QCoreApplication::translate("ConfigurationFile", "mend the JSON text there"));
    }
    if (!document.isObject()) {
        return refusal(
            file, 1, QCoreApplication::translate("ConfigurationFile", "it is not a JSON object"),
            QCoreApplication::translate("ConfigurationFile", "write {\"port\": \"…\", \"serialId\": \"…\"}"));
    }
    Settings result = settings;
    result.configurationFile = file;
    if (auto problem = Reader(text, file, sections, result).read(document.object())) {
        return problem;
    }
    settings = result;
    return std::nullopt;
}
