#include "json_lines.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

namespace {

/// Where the string that begins at that quote ends: the position of its last quote.
int endOfString(const QByteArray& text, int start)
{
    int end = start + 1;
    while (text.at(end) != '"') {
        end += text.at(end) == '\\' ? 2 : 1;
    }
    return end;
}

/// The text that a JSON string with its quotes stands for.
QString unescaped(const QByteArray& quoted)
{
    return QJsonDocument::fromJson('[' + quoted + ']').array().at(0).toString();
}

/// Whether the next character that is no white space, from there on, is a colon.
bool isFollowedByColon(const QByteArray& text, int position)
{
    while (position < text.size() && QChar::isSpace(uchar(text.at(position)))) {
        ++position;
    }
    return position < text.size() && text.at(position) == ':';
}

} // namespace

int lineOf(const QByteArray& text, int offset)
{
    return 1 + int(text.left(offset).count('\n'));
}

QMap<QString, int> linesOfKeys(const QByteArray& text)
{
    QMap<QString, int> lines;
    QStringList path; // of the value that is being read: a key for each object and array that is open
    int line = 1;
    for (int i = 0; i < text.size(); ++i) {
        const char character = text.at(i);
        if (character == '\n') {
            ++line;
        } else if (character == '{' || character == '[') {
            path.append(QString());
        } else if (character == '}' || character == ']') {
            path.removeLast();
        } else if (character == '"') {
            const int end = endOfString(text, i);
            if (isFollowedByColon(text, end + 1)) {
                path.last() = unescaped(text.mid(i, end - i + 1));
                lines.insert(path.join(QLatin1Char('.')), line);
            }
            i = end;
        }
    }
    return lines;
}

QByteArray jsonLine(const QJsonObject& object)
{
    constexpr int c_digits = 4;
    constexpr int c_hexadecimal = 16;
    const QString json = QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
    QString line;
    line.reserve(json.size() + 1);
    for (const QChar character : json) {
        switch (character.category()) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            // Only inside texts: a line of compact JSON has none elsewhere.
            line += QStringLiteral("\\u%1").arg(ushort(character.unicode()), c_digits, c_hexadecimal, QLatin1Char('0'));
            break;
        default:
            line += character;
        }
    }
    return line.toUtf8() + '\n';
}
