#include "qt/surface/shades.h"

#include <algorithm>
#include <cmath>

namespace headerdtc::qt {
namespace {

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

QColor mixed(const QColor& one, const QColor& other, double share) {
    const auto between = [share](float first, float second) {
        return static_cast<float>(share * first + (1 - share) * second);
    };
    return QColor::fromRgbF(between(one.redF(), other.redF()),
                            between(one.greenF(), other.greenF()),
                            between(one.blueF(), other.blueF()));
}

double contrast(const QColor& ink, const QColor& ground) {
    const double lights[] = {luminance(mixed(ink, ground, ink.alphaF())), luminance(ground)};
    const auto [darker, lighter] = std::minmax(lights[0], lights[1]);
    return (lighter + 0.05) / (darker + 0.05);
}

QPalette withReadableGrey(QPalette palette) {
    constexpr double Readable = 4.5;
    constexpr double Faintest = 0.5;
    const QColor window = palette.color(QPalette::Window);
    const QColor base = palette.color(QPalette::Base);
    const auto isReadable = [&](const QColor& ink) {
        return contrast(ink, window) >= Readable && contrast(ink, base) >= Readable;
    };
    QColor grey = palette.color(QPalette::PlaceholderText);
    const QColor text = palette.color(QPalette::Text);
    for (double share = Faintest; !isReadable(grey) && share <= 1; share += 0.05)
        grey = mixed(text, window, share);
    if (grey != palette.color(QPalette::PlaceholderText))
        palette.setColor(QPalette::PlaceholderText, grey);
    return palette;
}

}  // namespace headerdtc::qt
