#include "small_picture.h"

#include <QHash>
#include <QVector>

#include <algorithm>

namespace {

constexpr int c_mostColours = 256;

int distance(QRgb one, QRgb other)
{
    const int red = qRed(one) - qRed(other);
    const int green = qGreen(one) - qGreen(other);
    const int blue = qBlue(one) - qBlue(other);
    return red * red + green * green + blue * blue;
}

int nearest(const QVector<QRgb>& palette, QRgb colour)
{
    const auto found = std::min_element(palette.cbegin(), palette.cend(), [colour](QRgb one, QRgb other) {
        return distance(one, colour) < distance(other, colour);
    });
    return int(found - palette.cbegin());
}

} // namespace

QImage smallPicture(const QImage& picture)
{
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    for (int y = 0; y < source.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        for (int x = 0; x < source.width(); ++x) {
            ++counts[line[x]];
        }
    }
    const QList<QRgb> colours = counts.keys();
    QVector<QRgb> palette(colours.cbegin(), colours.cend());
    std::sort(palette.begin(), palette.end(), [&counts](QRgb one, QRgb other) {
        return counts.value(one) != counts.value(other) ? counts.value(one) > counts.value(other) : one < other;
    });
    palette.resize(std::min(palette.size(), c_mostColours));
    QHash<QRgb, int> places;
    for (const QRgb colour : colours) {
        places.insert(colour, nearest(palette, colour));
    }
    QImage result(source.size(), QImage::Format_Indexed8);
    result.setColorTable(palette);
    for (int y = 0; y < source.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* to = result.scanLine(y);
        for (int x = 0; x < source.width(); ++x) {
            to[x] = uchar(places.value(from[x]));
        }
    }
    return result;
}
