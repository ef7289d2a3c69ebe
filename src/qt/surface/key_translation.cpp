#include "qt/surface/key_translation.h"

#include <QKeyEvent>

namespace headerdtc::qt {
namespace {

std::optional<Key::Kind> kindOf(int qtKey) {
    switch (qtKey) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Key::Kind::Enter;
        case Qt::Key_Escape:
            return Key::Kind::Escape;
        case Qt::Key_Up:
            return Key::Kind::Up;
        case Qt::Key_Down:
            return Key::Kind::Down;
        case Qt::Key_Left:
            return Key::Kind::Left;
        case Qt::Key_Right:
            return Key::Kind::Right;
        case Qt::Key_Delete:
            return Key::Kind::Delete;
        case Qt::Key_Backspace:
            return Key::Kind::Backspace;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return Key::Kind::Tab;
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<Key> keyOf(const QKeyEvent& event) {
    constexpr auto Commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (event.modifiers() & Commands) return std::nullopt;
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    if (const auto kind = kindOf(event.key())) return Key{*kind, 0, shift};
    const auto characters = event.text().toUcs4();
    if (characters.size() != 1 || !QChar::isPrint(characters.front())) return std::nullopt;
    return Key{Key::Kind::Character, static_cast<char32_t>(characters.front()), shift};
}

bool isDialogKey(const Key& key) {
    return key.kind == Key::Kind::Enter || key.kind == Key::Kind::Escape;
}

bool isArrowKey(const Key& key) {
    return key.kind == Key::Kind::Up || key.kind == Key::Kind::Down ||
           key.kind == Key::Kind::Left || key.kind == Key::Kind::Right;
}

}  // namespace headerdtc::qt
