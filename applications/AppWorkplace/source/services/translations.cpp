#include "translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QTranslator>

void translations::install(const QString& language)
{
    const QString suffix = QStringLiteral("_%1.qm").arg(language);
    QStringList installed;
    const QList<QTranslator*> translators = QCoreApplication::instance()->findChildren<QTranslator*>();
    for (QTranslator* translator : translators) {
        if (translator->objectName().endsWith(suffix)) {
            installed.append(translator->objectName());
        } else {
            delete translator;
        }
    }
    const QDir folder(QStringLiteral(":/translations"));
    const QStringList files = folder.entryList({QLatin1Char('*') + suffix}, QDir::Files, QDir::Name);
    for (const QString& file : files) {
        if (!installed.contains(file)) {
            auto* translator = new QTranslator(QCoreApplication::instance());
            translator->setObjectName(file);
            translator->load(folder.filePath(file));
            QCoreApplication::installTranslator(translator);
        }
    }
    QLocale locale = language == QLatin1String("en") ? QLocale::c() : QLocale(language);
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    QLocale::setDefault(locale);
}
