#include "qt/surface/shades.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

namespace headerdtc::qt {
namespace {

// Of the guidelines for the web.
constexpr double ReadableText = 4.5;
constexpr double ReadableFrame = 3;

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

void drawFrame(QPainter& painter, const QStyleOption& option, int margin) {
    painter.setPen(frameColor(option.palette));
    painter.drawRect(option.rect.adjusted(margin, margin, -margin - 1, -margin - 1));
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

QColor readable(const QColor& ink, const QPalette& palette, double least) {
    const QColor window = palette.color(QPalette::Window);
    const QColor base = palette.color(QPalette::Base);
    const QColor faint = mixed(ink, window, ink.alphaF());
    QColor mix = ink;
    for (double share = 0.1;
         share <= 1 && std::min(contrast(mix, window), contrast(mix, base)) < least; share += 0.05)
        mix = mixed(palette.color(QPalette::Text), faint, share);
    return mix;
}

QColor frameColor(const QPalette& palette) {
    return readable(palette.color(QPalette::Highlight), palette, ReadableFrame);
}

QPalette withReadableGrey(QPalette palette) {
    const QColor grey = palette.color(QPalette::PlaceholderText);
    const QColor better = readable(grey, palette, ReadableText);
    if (better != grey) palette.setColor(QPalette::PlaceholderText, better);
    return palette;
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (button && (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)) {
        const bool isBox = element == PE_IndicatorCheckBox;
        // A ring is fainter than its ink.
        const double least = isBox ? ReadableFrame : 1.3 * ReadableFrame;
        const QPalette& palette = option->palette;
        const QColor frame = readable(palette.color(QPalette::Window), palette, least);
        QStyleOptionButton framed(*button);
        // The frames are drawn so much darker than the window.
        framed.palette.setColor(QPalette::Window, frame.lighter(isBox ? 128 : 150));
        return QProxyStyle::drawPrimitive(element, &framed, painter, widget);
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_FrameFocusRect) drawFrame(*painter, *option, 0);
}

void ReadableStyle::drawControl(ControlElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    constexpr int Margin = 3;
    if (element == CE_TabBarTabLabel && option->state.testFlag(State_HasFocus))
        drawFrame(*painter, *option, Margin);
}

// A light shadow behind disabled text is doubled on a dark ground.
int ReadableStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* returned) const {
    return hint == SH_EtchDisabledText ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace headerdtc::qt
