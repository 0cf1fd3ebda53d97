#include "transcript.h"

#include <QFile>

#include "typed_text.h"

namespace {

// \r \n \t \0 \s \\ and \xHH.
QByteArray withoutEscapes(const QString& text)
{
    const QByteArray raw = text.toUtf8();
    const QByteArray letters = QByteArrayLiteral("rnt0s\\");
    const QByteArray meanings = QByteArrayLiteral("\r\n\t\0 \\");
    QByteArray bytes;
    for (int i = 0; i < raw.size(); ++i) {
        const int meaning = raw.at(i) == '\\' && i + 1 < raw.size() ? letters.indexOf(raw.at(i + 1)) : -1;
        if (meaning >= 0) {
            bytes += meanings.at(meaning);
            ++i;
        } else if (raw.mid(i, 2) == "\\x") {
            bytes += QByteArray::fromHex(raw.mid(i + 2, 2));
            i += 3;
        } else {
            bytes += raw.at(i);
        }
    }
    return bytes;
}

QString column(const QString& word)
{
    return word.leftJustified(TranscriptStep::c_textColumn);
}

QStringList resultTexts(const TranscriptStep& step, int number)
{
    QStringList texts;
    QStringList call;     // words of one call
    bool sameCall = true; // the next word belongs to it
    const QStringList words = splitWords(step.text);
    for (const QString& word : words) {
        if (word == QLatin1String("+")) {
            sameCall = true;
            continue;
        }
        if (!sameCall) {
            texts.append(column(step.word) + typedText(mapOfWords(call)));
            call.clear();
        }
        call.append(QString(word).replace(QLatin1String(":#"), QStringLiteral(":%1").arg(number)));
        sameCall = false;
    }
    texts.append(column(step.word) + typedText(mapOfWords(call)));
    return texts;
}

QString propertyText(const TranscriptStep& step)
{
    const QString mark = QStringLiteral(" (not persistent)");
    const QString text = step.text.trimmed();
    const bool isMarked = text.endsWith(mark);
    return step.word + QLatin1Char(' ') + typedText(mapOfWords({isMarked ? text.chopped(mark.size()) : text})) +
           (isMarked ? mark : QString());
}

QString instructionText(const TranscriptStep& step)
{
    QStringList words = splitWords(step.text);
    const QString command = words.isEmpty() ? QString() : words.takeFirst();
    const QString parameters = typedText(mapOfWords(words)).replace(QStringLiteral(" + "), QStringLiteral(" "));
    return (column(step.word) + command + QLatin1Char(' ') + parameters).trimmed();
}

} // namespace

bool TranscriptStep::isArrival() const
{
    return word == QLatin1String("dongle<") || word == QLatin1String("wrench<") || word == QLatin1String("piece<");
}

QByteArray TranscriptStep::arrival() const
{
    return withoutEscapes(text) + (word == QLatin1String("piece<") ? "" : "\r\n");
}

QStringList TranscriptStep::expectedTexts(int number) const
{
    if (word == QLatin1String("result")) {
        return resultTexts(*this, number);
    }
    if (word == QLatin1String("property")) {
        return {propertyText(*this)};
    }
    if (word == QLatin1String("driver>") || word == QLatin1String("driver>?") || word == QLatin1String("self>")) {
        return {instructionText(*this)};
    }
    return {(column(word) + text.trimmed()).trimmed()};
}

QString readTranscript(const QString& file, QVector<TranscriptStep>& steps)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) {
        return QStringLiteral("%1: %2").arg(file, source.errorString());
    }
    const QStringList lines = QString::fromUtf8(source.readAll()).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString word = lines.at(i).section(QLatin1Char(' '), 0, 0);
        if (!word.isEmpty() && !word.startsWith(QLatin1Char('#'))) {
            steps.append({i + 1, word, lines.at(i).mid(qMax(TranscriptStep::c_textColumn, word.size()))});
        }
    }
    return {};
}
