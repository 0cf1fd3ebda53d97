#include "configuration_file.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>

#include <iterator>

namespace {

struct TextEntry
{
    const char* key;
    QString Settings::*setting;
};
constexpr TextEntry c_textEntries[] = {
    {"port", &Settings::port},       {"serialId", &Settings::serialId}, {"plugins", &Settings::pluginFolder},
    {"data", &Settings::dataFolder}, {"trace", &Settings::traceFile},
};
const QString c_driverEntry = QStringLiteral("driver");

int lineOf(const QByteArray& text, int offset)
{
    return 1 + int(text.left(offset).count('\n'));
}

/// Where the string that begins at that quote ends: the position of its last quote. The text is good JSON.
int endOfString(const QByteArray& text, int start)
{
    int end = start + 1;
    while (text.at(end) != '"') {
        end += text.at(end) == '\\' ? 2 : 1;
    }
    return end;
}

/// The line of a key of the outermost object; a key of the same name may stand in an object inside it.
int lineOfKey(const QByteArray& text, const QString& key)
{
    const QByteArray wanted = key.toUtf8();
    int depth = 0;
    for (int i = 0; i < text.size(); ++i) {
        const char character = text.at(i);
        if (character == '{' || character == '[') {
            ++depth;
        } else if (character == '}' || character == ']') {
            --depth;
        } else if (character == '"') {
            const int end = endOfString(text, i);
            const bool isKey = text.mid(end + 1).trimmed().startsWith(':');
            if (depth == 1 && isKey && text.mid(i + 1, end - i - 1) == wanted) {
                return lineOf(text, i);
            }
            i = end;
        }
    }
    return 1;
}

Problem refusal(const QString& file, int line, const QString& cause, const QString& mend)
{
    return {Problem::Kind::SetUp, QStringLiteral("configuration"),
            QStringLiteral("the configuration %1 is not used, line %2").arg(file).arg(line), cause, mend};
}

QString knownKeys()
{
    QStringList keys;
    for (const TextEntry& entry : c_textEntries) {
        keys.append(QLatin1String(entry.key));
    }
    keys.append(c_driverEntry);
    return keys.join(QStringLiteral(", "));
}

} // namespace

std::optional<Problem> readConfigurationFile(const QString& file, Settings& settings)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        return Problem{Problem::Kind::SetUp, QStringLiteral("configuration"),
                       QStringLiteral("the configuration %1 cannot be read").arg(file), input.errorString(),
                       QStringLiteral("check the name and the rights of the file")};
    }
    return readConfiguration(input.readAll(), file, settings);
}

std::optional<Problem> readConfiguration(const QByteArray& text, const QString& file, Settings& settings)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        return refusal(file, lineOf(text, error.offset), error.errorString(),
                       QStringLiteral("mend the JSON text there"));
    }
    if (!document.isObject()) {
        return refusal(file, 1, QStringLiteral("it is not a JSON object"),
                       QStringLiteral("write {\"port\": \"…\", \"serialId\": \"…\"}"));
    }
    Settings read = settings;
    const QJsonObject object = document.object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const int line = lineOfKey(text, entry.key());
        if (entry.key() == c_driverEntry) {
            if (!entry.value().isObject()) {
                return refusal(file, line, QStringLiteral("\"driver\" is not an object"),
                               QStringLiteral("write \"driver\": {\"baudRate\": 115200}"));
            }
            read.driver = entry.value().toObject();
            continue;
        }
        const auto* known = std::find_if(std::begin(c_textEntries), std::end(c_textEntries),
                                         [&](const TextEntry& each) { return entry.key() == QLatin1String(each.key); });
        if (known == std::end(c_textEntries)) {
            return refusal(file, line, QStringLiteral("\"%1\" is not known").arg(entry.key()),
                           QStringLiteral("known are: %1").arg(knownKeys()));
        }
        if (!entry.value().isString()) {
            return refusal(file, line, QStringLiteral("\"%1\" is not a text").arg(entry.key()),
                           QStringLiteral("put its value between quotes"));
        }
        read.*(known->setting) = entry.value().toString();
    }
    settings = read;
    return std::nullopt;
}
