#include "frontends/qt/keys.h"

#include <utility>

namespace vmgv {
namespace {

constexpr std::pair<Key, Qt::Key> kKeys[] = {
    {Key::Backspace, Qt::Key_Backspace},
    {Key::Tab, Qt::Key_Tab},
    {Key::Tab, Qt::Key_Backtab},
    {Key::Return, Qt::Key_Return},
    {Key::Return, Qt::Key_Enter},
    {Key::Escape, Qt::Key_Escape},
    {Key::Space, Qt::Key_Space},
    {Key::PageUp, Qt::Key_PageUp},
    {Key::PageDown, Qt::Key_PageDown},
    {Key::End, Qt::Key_End},
    {Key::Home, Qt::Key_Home},
    {Key::Left, Qt::Key_Left},
    {Key::Up, Qt::Key_Up},
    {Key::Right, Qt::Key_Right},
    {Key::Down, Qt::Key_Down},
    {Key::Delete, Qt::Key_Delete},
    {Key::F1, Qt::Key_F1},
    {Key::F2, Qt::Key_F2},
    {Key::F4, Qt::Key_F4},
};
constexpr std::pair<ShiftState, Qt::KeyboardModifier> kShifts[] = {
    {kShift, Qt::ShiftModifier}, {kControl, Qt::ControlModifier}, {kAlt, Qt::AltModifier}};

// Letters and digits have the same numbers on both sides.
constexpr bool isLetterOrDigit(int code) noexcept {
  return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
}

}  // namespace

std::optional<Key> formKey(const QKeyEvent& event) {
  for (const auto& [key, qtKey] : kKeys) {
    if (qtKey == event.key()) return key;
  }
  if (isLetterOrDigit(event.key())) return static_cast<Key>(event.key());
  return {};
}

int shiftState(Qt::KeyboardModifiers modifiers) noexcept {
  int state = 0;
  for (const auto& [shift, modifier] : kShifts) {
    if (modifiers & modifier) state |= shift;
  }
  return state;
}

Qt::Key qtKey(Key key) noexcept {
  for (const auto& [formKey, qtKey] : kKeys) {
    if (formKey == key) return qtKey;
  }
  const int code = static_cast<int>(key);
  return isLetterOrDigit(code) ? static_cast<Qt::Key>(code) : Qt::Key_unknown;
}

Qt::KeyboardModifiers qtModifiers(int shift) noexcept {
  Qt::KeyboardModifiers modifiers;
  for (const auto& [state, modifier] : kShifts) {
    if (shift & state) modifiers |= modifier;
  }
  return modifiers;
}

}  // namespace vmgv
