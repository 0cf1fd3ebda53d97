#include "language.h"

#include <QCoreApplication>

namespace {

const QString c_english = QStringLiteral("en");

} // namespace

QStringList language::all()
{
    return {c_english, QStringLiteral("de"), QStringLiteral("fr")};
}

language::Choice language::choose(const Settings& settings)
{
    if (!settings.language.isEmpty()) {
        return {settings.language, settings.origins.value(QStringLiteral("language"))};
    }
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString locale = qEnvironmentVariable(variable); // "de_DE.UTF-8"
        if (!locale.isEmpty()) {
            const QString name = locale.left(2);
            const bool isWord = locale.size() == 2 || !locale.at(2).isLetter();
            return {isWord && all().contains(name) ? name : c_english,
                    {SettingOrigin::Kind::Environment, QLatin1String(variable), 0}};
        }
    }
    return {c_english, {}};
}

Problem language::refusal(const QString& name)
{
    return {Problem::Kind::Usage,
            QStringLiteral("command line"),
            QCoreApplication::translate("Language", "there is no language \"%1\"").arg(name),
            {},
            QCoreApplication::translate("Language", "choose one of: %1").arg(all().join(QStringLiteral(", ")))};
}
