#include "visible_text.h"

QString visibleText(const QString& text)
{
    constexpr int c_digits = 2;
    constexpr int c_hexadecimal = 16;
    QString shown;
    shown.reserve(text.size());
    for (const QChar character : text) {
        switch (character.category()) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            shown +=
                QStringLiteral("\\x%1").arg(ushort(character.unicode()), c_digits, c_hexadecimal, QLatin1Char('0'));
            break;
        default:
            shown += character;
        }
    }
    return shown;
}
